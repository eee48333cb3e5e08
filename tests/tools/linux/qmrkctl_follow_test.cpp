// SPDX-License-Identifier: MIT
// "qmrkctl tail -f" on a terminal: in a window of tmux.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <thread>

#include "platform/native_path.h"
#include "tests/support/companion_process.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using platform::nativePath;

class QmrkctlFollow : public testsupport::QmrkctlRun {
 protected:
  void TearDown() override { tmux({"kill-server"}); }

  // A server of its own for each test, which takes the environment of the sandbox. The one of the test before may still
  // be ending.
  static testsupport::ChildResult tmux(std::vector<std::string> _arguments) {
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::string server = "qmrk-test-" + std::to_string(::getpid()) + "-" + test;
    _arguments.insert(_arguments.begin(), {"-L", server, "-f", "/dev/null"});
    return testsupport::runProgram("/usr/bin/tmux", _arguments);
  }

  static void startInWindow(const std::string& _command) {
    ASSERT_EQ(tmux({"new-session", "-d", "-x", "120", "-y", "30", "sh", "-c", _command}).exitCode, 0);
  }

  // Waits at most 30 s until the window shows the text.
  static testing::AssertionResult shows(const std::string& _text) {
    std::string window;
    for (int attempt = 0; attempt < 600; ++attempt) {
      window = tmux({"capture-pane", "-p", "-e"}).output;
      if (window.find(_text) != std::string::npos) return testing::AssertionSuccess();
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return testing::AssertionFailure() << "the window shows\n" << window;
  }

  void append(const std::string& _line) const {
    std::ofstream(nativePath(commonLog()), std::ios::app) << _line << "\n";
  }

  // Ctrl-C reaches the shell as well.
  static std::string command() { return "trap : INT; " + std::string(QMRKCTL) + " tail -f; echo ended with $?; cat"; }
};

TEST_F(QmrkctlFollow, ShowsNewLinesInColorUntilCtrlC) {
  writeCommonLog("[A.info] 20261121 10:00:00 first\n");
  startInWindow(command());
  EXPECT_TRUE(shows("10:00:00 first"));
  append("[A.error] 20261121 10:00:01 second");
  EXPECT_TRUE(shows("\x1b[31m[A.error] 20261121 10:00:01 second"));
  tmux({"send-keys", "C-c"});
  EXPECT_TRUE(shows("ended with 130"));
}

TEST_F(QmrkctlFollow, GoesThroughRenamingRemovalAndEmptying) {
  startInWindow(command());
  EXPECT_TRUE(shows("waiting for "));
  writeCommonLog("[A] 20261121 10:00:00 one\n");
  EXPECT_TRUE(shows("10:00:00 one"));
  ASSERT_EQ(std::rename(nativePath(commonLog()).c_str(), nativePath(commonLog() + ".1").c_str()), 0);
  append("[A] 20261121 10:00:01 two");
  EXPECT_TRUE(shows("10:00:01 two"));
  testsupport::removeAll(commonLog());
  append("[A] 20261121 10:00:02 three");
  EXPECT_TRUE(shows("10:00:02 three"));
  writeCommonLog("[A] 20261121 10:00:03 four\n");
  EXPECT_TRUE(shows("10:00:03 four"));
}

TEST_F(QmrkctlFollow, FollowsARunningApplicationThroughItsRolls) {
  sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\nSPEC_LOG_ROTATION=TRUE\nSPEC_LOG_FILE_LIMIT=200\n");
  writeCommonLog("");
  startInWindow(std::string(QMRKCTL) + " --app demo tail -f --lines 0 | grep -o ' line .*'; cat");
  EXPECT_TRUE(shows("waiting for "));
  ASSERT_EQ(logTest({"--app", "demo", "--lines", "8", "--classes", "Demo.App.info;"}).exitCode, 0);
  EXPECT_TRUE(shows(" line 8 of 8"));
  EXPECT_TRUE(shows(" line 1 of 8"));
}

TEST_F(QmrkctlFollow, EndsWhenNobodyReadsAnyMore) {
  writeCommonLog("[A] 20261121 10:00:00 one\n");
  // The last command of a pipe ends at once; nothing is ever written into the closed pipe.
  testsupport::CompanionProcess shell({"/bin/sh", "-c", std::string(QMRKCTL) + " tail -f | head -n 1; echo over"});
  EXPECT_EQ(shell.readLine(), "[A] 20261121 10:00:00 one");
  EXPECT_EQ(shell.readLine(), "over");
  EXPECT_EQ(shell.finish(), 0);
}

}  // namespace
