// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "tests/support/linux/system_calls.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;

TEST(MessageCost, IsOneSystemCall) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("cost.log");
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::flush_log_cache();
  bl::add_appender(manager, "Cost", bl::write_to_file(path, false), "A", 100);
  bl::add_modifier(manager, "Cost", bl::prepend_time_ms("$yyyy$MM$dd $hh:$mm:$ss.$mss "), "M", 100);
  bl::add_modifier(manager, "Cost", &bl::prepend_prefix, "M", 100);
  bl::add_modifier(manager, "Cost", &bl::append_enter, "M", 100);
  const bl::logger log("Cost");
  const auto logMany = [&log](int _count) {
    for (int i = 0; i < _count; ++i)
      QMRK_LOG(log) << "message " << i;
  };
  // The first messages open the file; some later ones may look whether it is still there, or begin another second.
  const std::vector<long> few = testsupport::systemCallsOf([&] { logMany(5); });
  const std::vector<long> many = testsupport::systemCallsOf([&] { logMany(105); });
  EXPECT_EQ(std::count(many.begin(), many.end(), SYS_write), 105);
  EXPECT_LT(many.size() - few.size(), 120U);
}

TEST(MessageCost, IsNothingWhenTheLogIsOff) {
  bl::enable_logs(bl::get_default_log_manager(), "Off", bl::level_off);
  const bl::logger log("Off");
  EXPECT_TRUE(testsupport::systemCallsOf([&log] {
                for (int i = 0; i < 1000; ++i)
                  QMRK_LOG(log) << "message " << i;
              }).empty());
}

// A sleep is a call of the system, whichever it is.
TEST(MessageCost, IncludesNoSleepWhileTheWriterIsBusy) {
  const std::vector<long> calls = testsupport::systemCallsOf([] {
    static std::atomic<bool> isBusy{false};
    const auto* const appender = new bl::ts_appender(
        [](const std::string&, const std::string&) {
          isBusy = true;
          ::pause();
        },
        0);
    (*appender)("Cost", "first");
    while (!isBusy)
      std::this_thread::yield();
    for (int i = 0; i < 1000; ++i)
      (*appender)("Cost", "message");
  });
  const auto yields = std::count(calls.begin(), calls.end(), SYS_sched_yield);
  EXPECT_LT(static_cast<long>(calls.size()) - yields, 1000);
}

}  // namespace
