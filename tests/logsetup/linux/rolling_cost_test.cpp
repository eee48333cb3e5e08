// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <algorithm>
#include <string>

#include "logsetup/rolling_file_appender.h"
#include "tests/support/linux/system_calls.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(RollingCost, IsOneSystemCallPerMessageInANewFile) {
  const testsupport::TemporaryFolder folder;
  const auto callsOf = [&folder](int _count) {
    return testsupport::systemCallsOf([&folder, _count] {
      boost::logging::rolling_file_appender appender(folder.file("log"), 1000000, 4, nullptr, false);
      for (int i = 0; i < _count; ++i)
        appender.write("a line\n");
    });
  };
  const std::vector<long> few = callsOf(5);
  const std::vector<long> many = callsOf(105);
  EXPECT_EQ(std::count(many.begin(), many.end(), SYS_write), 105);
  EXPECT_EQ(many.size() - few.size(), 100U);
}

}  // namespace
