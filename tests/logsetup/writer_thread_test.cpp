// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <iostream>
#include <sstream>
#include <thread>

#include "logsetup/ts_mode.h"
#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/support/fault_plan.h"

namespace {

using namespace Quillmark_logging;

/// Which thread came by. One thread notes itself, another waits for it.
class PassingThread {
 public:
  void note() {
    id_ = std::this_thread::get_id();
    isNoted_.store(true, std::memory_order_release);
  }
  /// Waits for the note; gives up after a time that no writer needs.
  bool isAnother() const {
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!isNoted_.load(std::memory_order_acquire)) {
      if (std::chrono::steady_clock::now() > giveUp) return false;
      std::this_thread::yield();
    }
    return id_ != std::this_thread::get_id();
  }

 private:
  std::thread::id id_;
  std::atomic<bool> isNoted_{false};
};

/// While it lives, the standard output goes to a buffer that notes the thread by which it is flushed.
class WatchedOutput : private std::stringbuf {
 public:
  explicit WatchedOutput(PassingThread& _writer) : writer_(_writer), former_(std::cout.rdbuf(this)) {}
  ~WatchedOutput() override { std::cout.rdbuf(former_); }
  WatchedOutput(const WatchedOutput&) = delete;
  WatchedOutput& operator=(const WatchedOutput&) = delete;

 private:
  int sync() override {
    writer_.note();
    return 0;
  }

  PassingThread& writer_;
  std::streambuf* const former_;
};

/// Every appender that the library connects in thread-safe mode writes by a thread of its own, and in its caller
/// otherwise.
class WriterThread : public testsupport::LogSetup {
 protected:
  WriterThread() {
    sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=App;\n");
    sandbox_.writeInit("CA12", "App;");
  }
  ~WriterThread() override {
    deleteAppender("*", APPENDER_COUT_APPL_SPEC);
    deleteAppender("*", "T");
  }

  static bool appendsByAnotherThread(bool _tsMode, const std::function<bool()>& _connect) {
    setTsMode(_tsMode);
    EXPECT_TRUE(_connect());
    PassingThread writer;
    const testsupport::CallHook hook(platform::Call::append, 1, [&writer] { writer.note(); });
    log("App", "text");
    return writer.isAnother();
  }
};

TEST_F(WriterThread, WritesTheCommonLogInThreadSafeModeOnly) {
  const auto connect = [this] { return setInitialLogLevels(sandbox_.appData() + "\\common.log", "CA12"); };
  EXPECT_TRUE(appendsByAnotherThread(true, connect));
  EXPECT_FALSE(appendsByAnotherThread(false, connect));
}

TEST_F(WriterThread, WritesTheLogOfAnApplicationInThreadSafeModeOnly) {
  for (const char* patterns : {"App", "App;"}) {
    const auto connect = [patterns] { return createApplicationSpecificLogFile(patterns, "Own", "CA12", false); };
    EXPECT_TRUE(appendsByAnotherThread(true, connect)) << patterns;
    EXPECT_FALSE(appendsByAnotherThread(false, connect)) << patterns;
  }
}

TEST_F(WriterThread, WritesToTheConsoleInThreadSafeModeOnly) {
  for (const bool isThreadSafe : {true, false}) {
    setTsMode(isThreadSafe);
    ASSERT_TRUE(initDefaultLogs("App", "CA12", true));
    PassingThread writer;
    const WatchedOutput output(writer);
    log("App", "text");
    EXPECT_EQ(writer.isAnother(), isThreadSafe);
    deleteAppender("*", QMRK_APPENDERS);
  }
}

TEST_F(WriterThread, CallsAnAppenderWithAnEmptyLogName) {
  for (const bool isThreadSafe : {true, false}) {
    setTsMode(isThreadSafe);
    PassingThread caller;
    std::string name = "not called";
    const auto keepName = [&](const std::string& _logName, const std::string&) {
      name = _logName;
      caller.note();
    };
    addAppender("App", threadSafeIfConfigured(keepName), "T", callableIndex);
    log("App", "text");
    EXPECT_EQ(caller.isAnother(), isThreadSafe);
    EXPECT_EQ(name, isThreadSafe ? "" : "App");
    deleteAppender("App", "T");
  }
}

}  // namespace
