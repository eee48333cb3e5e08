// SPDX-License-Identifier: MIT
#include "logsetup/log_manager_binding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

#include "logsetup/ts_mode.h"
#include "tests/logsetup/log_probe.h"
#include "tests/logsetup/log_setup.h"

namespace {

using namespace Quillmark_logging;
using testing::ElementsAre;
using testsupport::LogProbe;

class LogManagerBinding : public testsupport::LogSetup {
 protected:
  ~LogManagerBinding() override {
    deleteAppender("*", "T");
    deleteModifier("*", "T");
  }

  boost::logging::appender keeping(const std::string& _mark) {
    return [this, _mark](const std::string&, const std::string& _message) { kept_.push_back(_mark + _message); };
  }

  static boost::logging::modifier prepending(const std::string& _mark) {
    return [_mark](const std::string&, std::string& _message) { _message.insert(0, _mark); };
  }

  std::vector<std::string> kept_;
};

TEST_F(LogManagerBinding, ConnectsAnAppenderAndDisconnectsItByName) {
  addAppender("Bind.a", keeping("1:"), "T", callableIndex);
  log("Bind.a", "x");
  log("Bind.b", "x");
  deleteAppender("Bind.a", "T");
  log("Bind.a", "y");
  EXPECT_THAT(kept_, ElementsAre("1:x"));
}

TEST_F(LogManagerBinding, ConnectsAModifierAndDisconnectsItByName) {
  const LogProbe probe;
  addModifier("Bind.a", prepending("<"), "T", callableIndex);
  EXPECT_EQ(probe.logged("Bind.a", "x"), "<x");
  deleteModifier("Bind.a", "T");
  EXPECT_EQ(probe.logged("Bind.a", "x"), "x");
}

TEST_F(LogManagerBinding, PassesTheIndexOn) {
  addAppender("Bind.a", keeping("late:"), "T", 101);
  addAppender("Bind.a", keeping("early:"), "T", 99);
  log("Bind.a", "x");
  EXPECT_THAT(kept_, ElementsAre("early:x", "late:x"));
}

TEST_F(LogManagerBinding, ChainsAdditionsOnOnePattern) {
  const LogProbe probe;
  addModifier(addModifier(addAppender("Bind.a", keeping(""), "T", callableIndex), prepending("1"), "T", callableIndex),
              prepending("2"), "T", callableIndex);
  EXPECT_EQ(probe.logged("Bind.a", "x"), "21x");
  EXPECT_THAT(kept_, ElementsAre("21x"));
}

TEST_F(LogManagerBinding, DisconnectsEveryCallableOfAName) {
  addAppender("Bind.a", keeping("1:"), "T", callableIndex);
  addAppender("Bind.a", keeping("2:"), "T", callableIndex);
  deleteAppender("*", "T");
  log("Bind.a", "x");
  EXPECT_THAT(kept_, ElementsAre());
}

TEST_F(LogManagerBinding, IgnoresTheRemovalOfAnUnknownName) {
  const LogProbe probe;
  deleteAppender("*", "never added");
  deleteModifier("Bind.a", "never added");
  EXPECT_EQ(probe.logged("Bind.a", "x"), "x");
}

TEST_F(LogManagerBinding, SwitchesLogsOffAndOn) {
  disableLogs("*");
  EXPECT_FALSE(isOn("Bind.a"));
  enableLogs("Bind.a");
  EXPECT_TRUE(isOn("Bind.a"));
  EXPECT_FALSE(isOn("Bind.b"));
  disableLogs("Bind.a");
  EXPECT_FALSE(isOn("Bind.a"));
}

// ---- Thread-safe mode ----

// Holds its first call back until all messages have been logged, and keeps what it is given.
class HeldAppender {
 public:
  void operator()(const std::string& _message) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return released_; });
    batches_.push_back(_message);
    length_ += _message.size();
    changed_.notify_all();
  }
  void release() {
    const std::scoped_lock lock(mutex_);
    released_ = true;
    changed_.notify_all();
  }
  std::vector<std::string> waitForLength(std::size_t _length) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this, _length] { return length_ >= _length; });
    return batches_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool released_ = false;
  std::size_t length_ = 0;
  std::vector<std::string> batches_;
};

TEST_F(LogManagerBinding, DeliversMessagesInBatchesInThreadSafeMode) {
  HeldAppender held;
  setTsMode(true);
  addAppender("Bind.a",
              threadSafeIfConfigured([&held](const std::string&, const std::string& _message) { held(_message); }), "T",
              callableIndex);
  for (const char* message : {"1", "2", "3", "4"})
    log("Bind.a", message);
  held.release();
  const std::vector<std::string> batches = held.waitForLength(4);
  std::string all;
  for (const std::string& batch : batches)
    all += batch;
  EXPECT_EQ(all, "1234");
  EXPECT_LT(batches.size(), 4U);
  deleteAppender("Bind.a", "T");
}

TEST_F(LogManagerBinding, DeliversMessagesOneByOneOtherwise) {
  addAppender("Bind.a", threadSafeIfConfigured(keeping("")), "T", callableIndex);
  log("Bind.a", "1");
  log("Bind.a", "2");
  EXPECT_THAT(kept_, ElementsAre("1", "2"));
}

}  // namespace
