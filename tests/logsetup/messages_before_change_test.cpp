// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "logsetup/log_manager_binding.h"
#include "quillmark_logging.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"

namespace {

// A program of its own: only the first set-up of a process finds kept messages.
TEST(EarlyMessages, WaitForTheChangeThatIncludesASetUp) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Early;\n");
  sandbox.writeInit("CA12", "Early;");
  QMRK_LOG(boost::logging::logger("Early.log")) << "one";
  const std::string file = sandbox.logFolder() + "\\common.log";
  Quillmark_logging::SetUpChange change;
  ASSERT_TRUE(Quillmark_logging::initDefaultLogs("App", "CA12", false));
  QMRK_LOG(boost::logging::logger("Early.log")) << "two";
  change.apply();
  const std::string text = testsupport::readFile(file);
  EXPECT_NE(text.find(" one"), std::string::npos) << text;
  EXPECT_NE(text.find(" two"), std::string::npos) << text;
  Quillmark_logging::deleteAppender("*", "APPENDER_WRITE2FILE_INIT");
  change.apply();
}

}  // namespace
