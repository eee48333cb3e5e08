// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>

#include "boost/logging/logging.hpp"
#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;
using testsupport::inForkedChild;

TEST(Fork, LetsAChildLog) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("fork.log");
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::add_appender(manager, "F1", bl::write_to_file(path, false), "A", 100);
  bl::logger("F1").write("parent\n");
  EXPECT_EQ(inForkedChild([&manager] {
              bl::logger("F1").write("child\n");
              bl::enable_logs(manager, "F1", bl::level_off);
              return bl::logger("F1").is_enabled() ? 1 : 0;
            }),
            0);
  bl::logger("F1").write("parent\n");
  EXPECT_EQ(testsupport::readFile(path), "parent\nchild\nparent\n");
}

/// Forks in its first call. The child logs from inside and ends with 1 when another thread entered then.
class ForkingAppender {
 public:
  void operator()(const std::string& /*_log*/, const std::string& /*_text*/) {
    if (isChild_ && std::this_thread::get_id() != owner_) isEnteredByOther_ = true;
    if (hasForked_.exchange(true)) return;
    const pid_t child = ::fork();
    if (child == 0) {
      isChild_ = true;
      owner_ = std::this_thread::get_id();
      bl::logger("F2").write("child");
      ::_exit(isEnteredByOther_ ? 1 : 0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    childStatus_ = status;
  }

  int waitForChild() const {
    while (childStatus_ == unknown)
      std::this_thread::yield();
    return childStatus_;
  }

 private:
  static constexpr int unknown = -2;

  std::atomic<bool> hasForked_{false};
  std::atomic<bool> isChild_{false};
  std::atomic<bool> isEnteredByOther_{false};
  std::atomic<int> childStatus_{unknown};
  std::thread::id owner_;
};

TEST(Fork, StartsNoSecondWriterThreadInsideAnAppenderOfTheFirst) {
  // Lives as long as the log manager.
  static auto* const forking = new ForkingAppender;
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::add_appender(
      manager, "F2",
      bl::ts_appender([](const std::string& _log, const std::string& _text) { (*forking)(_log, _text); }, 0), "A", 100);
  bl::logger("F2").write("parent");
  EXPECT_EQ(forking->waitForChild(), 0);
  bl::del_appender(manager, "F2", "A");
}

}  // namespace
