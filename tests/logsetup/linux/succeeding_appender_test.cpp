// SPDX-License-Identifier: MIT
// A set-up that takes the place of another one on the file of an application. (On Windows no file can be renamed that
// two streams have open.)
#include "logsetup/succeeding_appender.h"

#include <unistd.h>

#include <atomic>
#include <future>
#include <memory>
#include <thread>

#include "platform/process.h"
#include "tests/logsetup/application_logs.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/sleeping_thread.h"

namespace {

using testsupport::log;
using testsupport::readFile;

class SucceedingAppender : public testsupport::ApplicationLogs {
 protected:
  SucceedingAppender() { configureRotation("6", "3"); }
};

TEST_F(SucceedingAppender, WritesToTheFileThatItsPredecessorBeganDuringTheSetUp) {
  const testsupport::FaultPlan reads(platform::Call::openForReading, 1, platform::noError);
  ASSERT_TRUE(create("App"));
  // The list of classes is the last file to be read, when the new appender has its file open and the former one is
  // still connected.
  const testsupport::CallHook beforeTheEnd(platform::Call::openForReading, reads.calls(), [] { log("App", "12345"); });
  ASSERT_TRUE(create("App"));
  EXPECT_EQ(readFile(backup(1)), "12345");
  log("App", "after");
  EXPECT_EQ(readFile(backup(1)), "after");
  EXPECT_EQ(readFile(backup(2)), "12345");
}

/// A thread that writes a message, and stays.
class WritingThread {
 public:
  WritingThread(Quillmark_logging::SucceedingAppender& _appender, const std::string& _message)
      : thread_([this, &_appender, _message] {
          id_ = platform::threadId();
          _appender.write(_message);
          mayEnd_.get_future().wait();
        }) {}
  ~WritingThread() {
    mayEnd_.set_value();
    thread_.join();
  }
  WritingThread(const WritingThread&) = delete;
  WritingThread& operator=(const WritingThread&) = delete;

  /// Returns when it has written, or waits for its turn.
  void awaitSleep() const {
    while (id_ == 0)
      std::this_thread::yield();
    EXPECT_TRUE(testsupport::waitUntilThreadSleeps(id_));
  }

 private:
  std::atomic<std::uint32_t> id_{0};
  std::promise<void> mayEnd_;
  std::thread thread_;
};

/// Two appenders of a pattern on one file, as there are while a set-up replaces the former one.
class TwoAppenders : public SucceedingAppender {
 protected:
  TwoAppenders() { testsupport::makeFolders(folder()); }

  Quillmark_logging::SucceedingAppender appender(const std::string& _pattern) const {
    return Quillmark_logging::SucceedingAppender(file(), 5, 4, _pattern);
  }
};

TEST_F(TwoAppenders, LoseNoLineToTheRollOfTheOther) {
  auto former = appender("App");
  auto next = appender("App");
  std::unique_ptr<WritingThread> other;
  {
    // The former one has rolled the file and is about to begin it again.
    const testsupport::CallHook duringTheRoll(platform::Call::openForWriting, 1, [&next, &other] {
      other = std::make_unique<WritingThread>(next, "new");
      other->awaitSleep();
    });
    former.write("12345");
  }
  other.reset();
  EXPECT_EQ(readFile(backup(1)), "12345");
  EXPECT_EQ(readFile(file()), "new");
}

TEST_F(TwoAppenders, WriteBehindEachOther) {
  auto former = appender("App");
  former.write("12345");
  former.write("a");
  auto next = appender("App");
  next.write("b");
  former.write("c");
  next.write("d");
  EXPECT_EQ(readFile(file()), "abcd");
  former.write("e");
  EXPECT_EQ(readFile(backup(1)), "abcde");
  next.write("f");
  EXPECT_EQ(readFile(file()), "f");
}

TEST_F(TwoAppenders, DoNotRollAFileThatTheOtherHasJustBegun) {
  auto former = appender("App");
  auto next = appender("App");
  former.write("1234");
  next.write("5");
  former.write("6");
  EXPECT_EQ(readFile(file()), "6");
  EXPECT_EQ(readFile(backup(1)), "12345");
  EXPECT_FALSE(testsupport::exists(backup(2)));
}

TEST_F(TwoAppenders, StayClosedAfterAFailedRoll) {
  auto former = appender("App");
  auto next = appender("App");
  next.write("1");
  testsupport::writeFile(backup(3), "");
  testsupport::makeFolders(backup(4) + "\\full");
  EXPECT_THROW(former.write("2345"), std::exception);
  EXPECT_THROW(next.write("6"), std::exception);
  former.write("7");
  EXPECT_EQ(readFile(file()), "123456");
}

TEST_F(TwoAppenders, WriteInAForkedChildWhateverTheOtherWasDoing) {
  auto former = appender("App");
  auto next = appender("App");
  int result = -1;
  {
    const testsupport::CallHook duringTheWrite(platform::Call::write, 1, [&next, &result] {
      // Another thread has its turn.
      std::thread([&next, &result] {
        result = testsupport::inForkedChild([&next] {
          // Ends the child when it hangs.
          ::alarm(30);
          next.write("c");
          return 0;
        });
      }).join();
    });
    former.write("p");
  }
  EXPECT_EQ(result, 0);
  EXPECT_EQ(readFile(file()), "cp");
}

TEST_F(TwoAppenders, IgnoreEachOtherForDifferentPatterns) {
  auto one = appender("App");
  auto other = appender("Other");
  one.write("12345");
  other.write("b");
  EXPECT_EQ(readFile(backup(2)), "12345b");
}

TEST_F(SucceedingAppender, FollowsNobodyAfterTheSetUp) {
  ASSERT_TRUE(create("A;B;"));
  log("A", "12345");
  log("B", "b");
  EXPECT_EQ(readFile(backup(2)), "12345b");
}

}  // namespace
