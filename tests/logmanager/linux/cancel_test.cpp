// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

#include "boost/logging/logging.hpp"
#include "platform/errors.h"
#include "platform/process.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/replaced_stream.h"
#include "tests/support/sleeping_thread.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;

bl::default_log_manager& manager() { return bl::get_default_log_manager(); }

/// Runs the function on a thread that has been asked to end, up to its next cancellation point.
/// @return whether the thread got past the function and was then cancelled.
bool finishesBeforeTheCancellation(const std::function<void()>& _function) {
  struct Run {
    const std::function<void()>& function;
    bool isFinished = false;
  } run{_function};
  pthread_t thread{};
  const auto body = [](void* _run) -> void* {
    ::pthread_cancel(::pthread_self());
    static_cast<Run*>(_run)->function();
    static_cast<Run*>(_run)->isFinished = true;
    ::pthread_testcancel();
    return nullptr;
  };
  if (::pthread_create(&thread, nullptr, body, &run) != 0) return false;
  void* result = nullptr;
  return ::pthread_join(thread, &result) == 0 && run.isFinished && result == PTHREAD_CANCELED;
}

class Cancel : public testing::Test {
 protected:
  Cancel() { bl::add_modifier(manager(), "Cancel", &bl::append_enter, "M", 100); }

  ~Cancel() override {
    bl::del_appender(manager(), "Cancel", "A");
    bl::del_modifier(manager(), "Cancel", "M");
  }

  void connect(const bl::appender& _appender) {
    bl::add_appender(manager(), "Cancel", _appender, "A", 100);
    bl::flush_log_cache();
  }

  bool logs() {
    return finishesBeforeTheCancellation([this] { QMRK_LOG(log_) << "whole"; });
  }

  /// For what a writer thread delivers: it needs a processor first.
  void waitForText(const std::string& _text) const {
    while (!testsupport::exists(path_) || testsupport::readFile(path_) != _text)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }

  testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("cancel.log");
  const bl::logger log_{"Cancel"};
};

TEST_F(Cancel, LetsAStatementFinishToAFile) {
  connect(bl::write_to_file(path_, false));
  EXPECT_TRUE(logs());
  EXPECT_EQ(testsupport::readFile(path_), "whole\n");
}

TEST_F(Cancel, LetsAStatementFinishToAForeignAppender) {
  const bl::write_to_file file(path_, false);
  connect([file](const std::string& _log, const std::string& _text) {
    ::pthread_testcancel();
    file(_log, _text);
  });
  EXPECT_TRUE(logs());
  EXPECT_EQ(testsupport::readFile(path_), "whole\n");
}

TEST_F(Cancel, LetsAStatementFinishToTheConsole) {
  connect(&bl::write_to_cout);
  EXPECT_TRUE(logs());
}

TEST_F(Cancel, LetsAStatementFinishThatStartsAWriterThread) {
  connect(bl::ts_appender(bl::write_to_file(path_, false), 0));
  EXPECT_TRUE(logs());
  waitForText("whole\n");
}

TEST_F(Cancel, KeepsAnEarlyMessage) {
  EXPECT_TRUE(logs());
  connect(bl::write_to_file(path_, false));
  EXPECT_EQ(testsupport::readFile(path_), "whole\n");
}

TEST_F(Cancel, LetsTheRemovalOfAWriterThreadFinish) {
  connect(bl::ts_appender(bl::write_to_file(path_, false), 1));
  QMRK_LOG(log_) << "one";
  EXPECT_TRUE(finishesBeforeTheCancellation([] { bl::del_appender(manager(), "Cancel", "A"); }));
  // The removal waits for one and a half intervals, and not for the thread.
  waitForText("one\n");
}

TEST_F(Cancel, LetsAStatementFinishAtAFileSizeLimit) {
  connect(bl::write_to_file(path_, false));
  {
    // Known when the file is opened, and reached by the first message.
    const testsupport::FileSizeLimit limit(4);
    QMRK_LOG(log_) << "one";
    EXPECT_TRUE(logs());
  }
  EXPECT_EQ(testsupport::readFile(path_), "one\n");
}

TEST_F(Cancel, LetsTheReportOfALostMessageFinishWithoutAReader) {
  connect(bl::write_to_file(path_, false));
  QMRK_LOG(log_) << "one";
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  bool isFinished = false;
  {
    const testsupport::ReplacedStream console(STDERR_FILENO, ends[1]);
    const testsupport::FaultPlan plan(platform::Call::append, 1, platform::errorDiskFull);
    isFinished = logs();
  }
  ::close(ends[1]);
  EXPECT_TRUE(isFinished);
}

TEST_F(Cancel, LetsAMessageWaitUntilTheFlushEnds) {
  std::thread waiting;
  bool isFinished = false;
  int messages = 0;
  bl::add_appender(
      manager(), "Cancel",
      [&](const std::string&, const std::string&) {
        // What is logged in the first two rounds of the flush is kept for the next one, in the third one it waits.
        if (++messages < 3) {
          std::thread([this] { QMRK_LOG(log_) << "next round"; }).join();
        } else if (messages == 3) {
          std::atomic<std::uint32_t> id{0};
          waiting = std::thread([this, &id, &isFinished] {
            isFinished = finishesBeforeTheCancellation([this, &id] {
              id = platform::threadId();
              QMRK_LOG(log_) << "whole";
            });
          });
          while (id == 0)
            std::this_thread::yield();
          EXPECT_TRUE(testsupport::waitUntilThreadSleeps(id));
        }
      },
      "A", 100);
  QMRK_LOG(log_) << "first round";
  bl::flush_log_cache();
  waiting.join();
  EXPECT_TRUE(isFinished);
  EXPECT_EQ(messages, 4);
}

}  // namespace
