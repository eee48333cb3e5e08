// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

#include "platform/clock.h"
#include "tests/support/linux/forked_child.h"

namespace {

TEST(LocalTimeFork, LetsAChildReadTheLocalTimeWhateverThreadsOfTheParentDo) {
  std::atomic<bool> isOver{false};
  std::vector<std::thread> readers;
  for (int i = 0; i < 4; ++i) {
    readers.emplace_back([&isOver] {
      while (!isOver)
        platform::localTime();
    });
  }
  int result = 0;
  for (int i = 0; i < 100 && result == 0; ++i) {
    result = testsupport::inForkedChild([] {
      // Ends a child that hangs.
      ::alarm(20);
      return platform::localTime().month > 0 ? 0 : 1;
    });
  }
  EXPECT_EQ(result, 0);
  isOver = true;
  for (std::thread& reader : readers)
    reader.join();
}

}  // namespace
