// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using platform::processId;
using platform::threadId;

TEST(Process, KeepsItsId) {
  const int own = processId();
  EXPECT_GT(own, 0);
  int other = 0;
  std::thread([&other] { other = processId(); }).join();
  EXPECT_EQ(other, own);
}

TEST(Process, GivesEveryThreadAnIdThatIsNotZero) {
  const std::uint32_t own = threadId();
  EXPECT_NE(own, 0U);
  EXPECT_EQ(threadId(), own);
  std::uint32_t other = own;
  std::thread([&other] { other = threadId(); }).join();
  EXPECT_NE(other, own);
  EXPECT_NE(other, 0U);
}

}  // namespace
