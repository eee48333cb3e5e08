// SPDX-License-Identifier: MIT
#include "platform/running_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/process.h"

namespace {

std::uint32_t ownId() { return static_cast<std::uint32_t>(platform::processId()); }

TEST(RunningProcess, HasAStartThatStays) {
  const std::uint64_t start = platform::startTimeOf(ownId());
  EXPECT_NE(start, 0U);
  EXPECT_EQ(platform::startTimeOf(ownId()), start);
}

TEST(RunningProcess, HasNoStartWhenThereIsNone) { EXPECT_EQ(platform::startTimeOf(0x7FFFFFFC), 0U); }

TEST(RunningProcess, KnowsItsProgram) {
  std::string name = platform::programPath();
  std::transform(name.begin(), name.end(), name.begin(), [](char _c) { return _c == '/' ? '?' : _c; });
  EXPECT_NE(name.find("\\platform_test"), std::string::npos) << name;
}

}  // namespace
