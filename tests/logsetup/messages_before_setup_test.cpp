// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "logsetup/log_manager_binding.h"
#include "quillmark_logging.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/matches_pattern.h"
#include "tests/trace/traced_console.h"

namespace {

// Each in a process of its own: only the first set-up finds kept messages.
TEST(EarlyMessages, PrecedeTheLaterOnesInTheCommonLog) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Early;\n");
  sandbox.writeInit("CA12", "Early.on;");
  QMRK_LOG(boost::logging::logger("Early.on")) << "one";
  QMRK_LOG(boost::logging::logger("Early.off")) << "two";
  QMRK_LOG(boost::logging::logger("Elsewhere")) << "three";
  const std::string file = sandbox.logFolder() + "\\common.log";
  ASSERT_TRUE(Quillmark_logging::initDefaultLogs("App", "CA12", false));
  QMRK_LOG(boost::logging::logger("Early.on")) << "four";
  const std::string stamp = "[0-9]{8} [0-9]{2}:[0-9]{2}:[0-9]{2}";
  // Between them lies the description of the system, where it is known.
  EXPECT_THAT(
      testsupport::replaced(testsupport::readFile(file), testsupport::nativeLineEnds("\n"), "\n"),
      testsupport::MatchesPattern("\\[Early.on\\] " + stamp + " one\n[^[]*\\[Early.on\\] " + stamp + " four\n"));
  Quillmark_logging::deleteAppender("*", "APPENDER_WRITE2FILE_INIT");
}

TEST(EarlyMessages, PrecedeTheDescriptionOfTheSystem) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\n");
  sandbox.writeInit("CA12", "Early;");
  QMRK_LOG(boost::logging::logger("Early.on")) << "one";
  const testsupport::TracedConsole console;
  std::string traceAtDelivery;
  const auto keepTrace = [&](const std::string&, const std::string&) { traceAtDelivery += console.text(); };
  Quillmark_logging::addAppender("Early", keepTrace, "T", 1);
  ASSERT_TRUE(Quillmark_logging::initDefaultLogs("App", "CA12", false));
  Quillmark_logging::deleteAppender("Early", "T");
  const std::string description = "==> Quillmark_logging::writeOSInfo() _ca=CA12\r\n";
  EXPECT_THAT(traceAtDelivery, testing::HasSubstr("<== Quillmark_logging::updateLogLevels()"));
  EXPECT_THAT(traceAtDelivery, testing::Not(testing::HasSubstr(description)));
  EXPECT_THAT(console.text(), testing::HasSubstr(description));
}

}  // namespace
