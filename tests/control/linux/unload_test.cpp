// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "platform/native_path.h"
#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/private_events.h"

namespace {

testsupport::ChildResult load(const std::string& _action, const std::string& _library) {
  return testsupport::runProgram(QMRK_PLUGIN_LOADER, {_action, _library});
}

TEST(Unload, KeepsEachLibraryLoaded) {
  for (const char* library : {QMRK_LIBRARY, QMRK_LOG_MANAGER}) {
    const testsupport::ChildResult result = load("alone", library);
    EXPECT_EQ(result.exitCode, 0) << library << " " << result.errors;
  }
}

TEST(Unload, LosesNothingThatAPluginLogged) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA12\nTS_APPENDERS=TRUE\n");
  sandbox.writeCfg("CA12",
                   "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Plugin;\n"
                   "TS_APPENDERS=TRUE\n");
  sandbox.writeInit("CA12", "Plugin;");
  const testsupport::ChildResult result = load("log", QMRK_CLOSED_PLUGIN);
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const std::string log = testsupport::readFile(platform::nativePath(sandbox.logFolder() + "\\common.log"));
  std::size_t place = 0;
  for (int line = 0; line < 2000; ++line) {
    const std::string text = "line " + std::to_string(line % 1000) + " of the plugin\n";
    place = log.find(text, place);
    ASSERT_NE(place, std::string::npos) << line;
    place += text.size();
  }
}

TEST(Unload, LeavesTheListenerOfAPluginAtWork) {
  testsupport::usePrivateEvents();
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox.writeCfg("CA12", "LOG_STATE=TRUE\n");
  sandbox.writeInit("CA12", "Plugin;");
  const testsupport::ChildResult result = load("listen", QMRK_CLOSED_PLUGIN);
  EXPECT_EQ(result.exitCode, 0) << result.errors;
}

}  // namespace
