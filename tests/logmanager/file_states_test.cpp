// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/appenders/file_notes.h"
#include "logmanager/appenders/message_queue.h"
#include "platform/errors.h"
#include "tests/logmanager/appenders/wrapped_appender.h"
#include "tests/logmanager/timed_write.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;
using platform::Call;
using testsupport::FaultPlan;
using testsupport::writeAt;

int observed = 0;

// What is listed of a file, and how often the observer was called.
class FileStates : public testing::Test {
 protected:
  FileStates() {
    observed = 0;
    bl::observe_files([] { ++observed; });
  }
  ~FileStates() override { bl::observe_files(nullptr); }

  bl::file_state stateOf(const std::string& _path) const {
    bl::file_state found{"", 0, 0, 0, 0, 0, false};
    bl::list_files([&](const bl::file_state& _file) {
      if (_file.path == _path) found = _file;
    });
    return found;
  }

  const testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "\\file.txt";
};

TEST_F(FileStates, OmitAFileWithoutTrouble) {
  const bl::write_to_file file(path_, false);
  file("", "a\n");
  EXPECT_EQ(stateOf(path_).path, "");
  EXPECT_EQ(observed, 0);
}

TEST_F(FileStates, CountLostMessagesAndSayWhy) {
  const bl::write_to_file file(path_, false);
  file("", "a\n");
  const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 3);
  for (int i = 0; i < 3; ++i)
    file("", "b\n");
  const bl::file_state state = stateOf(path_);
  EXPECT_EQ(state.lost, 3U);
  EXPECT_EQ(state.error, platform::errorDiskFull);
  EXPECT_TRUE(state.is_failing);
  EXPECT_GT(state.failed_at, 1'700'000'000'000);
  EXPECT_EQ(observed, 3);
}

TEST_F(FileStates, CountMessagesForAFileThatDoesNotOpen) {
  const bl::write_to_file file(path_, false);
  const FaultPlan plan(Call::openForAppending, 1, platform::errorAccessDenied, 1);
  file("", "a\n");
  EXPECT_EQ(stateOf(path_).lost, 1U);
  EXPECT_EQ(stateOf(path_).error, platform::errorAccessDenied);
}

TEST_F(FileStates, ShowThatAFileWorksAgain) {
  const bl::write_to_file file(path_, false);
  {
    const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 1);
    file("", "a\n");
  }
  file("", "b\n");
  EXPECT_EQ(observed, 2);
  const bl::file_state state = stateOf(path_);
  EXPECT_FALSE(state.is_failing);
  EXPECT_EQ(state.lost, 1U);
  EXPECT_EQ(state.error, platform::errorDiskFull);
  file("", "c\n");
  EXPECT_EQ(observed, 2);
}

TEST_F(FileStates, ShowThatAFileWorksAgainWhoeverLostWhatWasWritten) {
  {
    const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 1);
    bl::write_to_file(path_, false)("", "a\n");
  }
  EXPECT_TRUE(stateOf(path_).is_failing);
  const bl::write_to_file later(path_, false);
  later("", "b\n");
  EXPECT_FALSE(stateOf(path_).is_failing);
  EXPECT_EQ(stateOf(path_).lost, 1U);
  EXPECT_EQ(observed, 2);
}

TEST_F(FileStates, ShowThatAFileWorksAgainWithinASecondOfTheEndOfOneThatCouldNotWriteIt) {
  const bl::write_to_file appender(path_, false);
  {
    const bl::write_to_file former(path_, false);
    writeAt(appender, 0, "1\n");
    const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 1);
    writeAt(former, 0, "2\n");
  }
  EXPECT_TRUE(stateOf(path_).is_failing);
  writeAt(appender, 999, "3\n");
  EXPECT_FALSE(stateOf(path_).is_failing);
  writeAt(appender, 1998, "4\n");
  EXPECT_EQ(observed, 2);
}

TEST_F(FileStates, JoinTheWritersOfOneFile) {
  const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 2);
  bl::write_to_file(path_, false)("", "a\n");
  bl::write_to_file(path_, false)("", "b\n");
  EXPECT_EQ(stateOf(path_).lost, 2U);
}

TEST_F(FileStates, ReportWhatWaitsForAThread) {
  testsupport::Wrapped wrapped;
  const bl::ts_appender toThread(wrapped.appender(), 0, path_);
  EXPECT_EQ(stateOf(path_).path, path_);
  EXPECT_EQ(stateOf(path_).held, 0U);
  wrapped.holdUp(true);
  toThread("", "a\n");
  wrapped.waitForText(2);
  const std::string mebi(std::size_t{1024} * 1024, 'x');
  for (int i = 0; i < 3; ++i)
    toThread("", mebi);
  EXPECT_GE(stateOf(path_).held, 3 * mebi.size());
  wrapped.holdUp(false);
  // The thread still uses what is destroyed here.
  wrapped.waitForText(2 + 3 * mebi.size());
}

TEST_F(FileStates, KnowTheFileOfAWrappedWriteToFile) {
  const bl::ts_appender toThread(bl::write_to_file(path_, false), 0);
  EXPECT_EQ(stateOf(path_).path, path_);
}

TEST_F(FileStates, KeepTheDropsOfAnEndedQueue) {
  {
    bl::detail::MessageQueue queue(1);
    const bl::detail::NotedQueue noted(path_, queue);
    queue.push(std::string(std::size_t{1024} * 1024, 'x'));
    queue.push(std::string(std::size_t{1024} * 1024, 'x'));
    EXPECT_EQ(stateOf(path_).dropped, 2U);
    EXPECT_EQ(observed, 1) << "once when the dropping begins";
    bl::detail::Batch batch;
    queue.collect(batch, true);
    EXPECT_EQ(observed, 2) << "once when it ends";
    EXPECT_EQ(stateOf(path_).dropped, 2U);
    queue.rewind();
    EXPECT_EQ(stateOf(path_).dropped, 2U);
  }
  EXPECT_EQ(stateOf(path_).dropped, 2U);
}

TEST_F(FileStates, SurviveAnObserverThatThrows) {
  bl::observe_files([] { throw 1; });
  const bl::write_to_file file(path_, false);
  const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 1);
  EXPECT_NO_THROW(file("", "a\n"));
}

TEST(LogList, NamesEachLogWithItsSwitch) {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  const bl::logger on("LogList.on");
  const bl::logger off("LogList.off");
  bl::enable_logs(manager, "LogList.off", bl::level_off);
  std::vector<std::pair<std::string, bool>> logs;
  bl::list_logs(manager, [&](const std::string& _name, bool _isOn) {
    if (_name.rfind("LogList.", 0) == 0) logs.emplace_back(_name, _isOn);
  });
  EXPECT_EQ(logs, (std::vector<std::pair<std::string, bool>>{{"LogList.on", true}, {"LogList.off", false}}));
}

TEST(LogList, LetsTheVisitorCallTheManager) {
  const bl::logger log("LogList.visited");
  bl::list_logs(bl::get_default_log_manager(), [](const std::string& _name, bool _isOn) {
    if (_name != "LogList.visited") return;
    EXPECT_EQ(bl::logger(_name).is_enabled(), _isOn);
  });
}

}  // namespace
