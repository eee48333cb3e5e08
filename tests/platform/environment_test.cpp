// SPDX-License-Identifier: MIT
#include "platform/environment.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"

namespace {

using platform::environmentVariable;
using testsupport::setEnvironment;

constexpr char variableName[] = "QMRK_ENVIRONMENT_TEST";

class EnvironmentVariable : public ::testing::Test {
 protected:
  EnvironmentVariable() { buffer_.fill('#'); }
  ~EnvironmentVariable() override { setEnvironment(variableName, ""); }

  std::size_t query() { return environmentVariable(variableName, buffer_.data(), buffer_.size()); }
  bool bufferIsUntouched() const { return std::string(buffer_.data(), buffer_.size()) == std::string(256, '#'); }

  std::array<char, 256> buffer_{};
};

TEST_F(EnvironmentVariable, GivesZeroAndLeavesTheBufferWhenItIsUnset) {
  setEnvironment(variableName, "");
  EXPECT_EQ(query(), 0U);
  EXPECT_TRUE(bufferIsUntouched());
}

TEST_F(EnvironmentVariable, ComesWithItsFinalNul) {
  setEnvironment(variableName, "CA12");
  EXPECT_EQ(query(), 4U);
  EXPECT_STREQ(buffer_.data(), "CA12");
  EXPECT_EQ(buffer_[5], '#');
}

TEST_F(EnvironmentVariable, FitsWithOneCharacterLessThanTheBuffer) {
  const std::string value(255, 'v');
  setEnvironment(variableName, value);
  EXPECT_EQ(query(), 255U);
  EXPECT_STREQ(buffer_.data(), value.c_str());
}

TEST_F(EnvironmentVariable, GivesTheNeededSizeWhenItIsAsLongAsTheBuffer) {
  setEnvironment(variableName, std::string(256, 'v'));
  EXPECT_EQ(query(), 257U);
  EXPECT_TRUE(bufferIsUntouched());
}

TEST_F(EnvironmentVariable, GivesTheNeededSizeWhenItIsMuchLonger) {
  setEnvironment(variableName, std::string(5000, 'v'));
  EXPECT_EQ(query(), 5001U);
  EXPECT_TRUE(bufferIsUntouched());
}

TEST_F(EnvironmentVariable, GivesTheNeededSizeWithoutABuffer) {
  setEnvironment(variableName, "GE");
  EXPECT_EQ(environmentVariable(variableName, nullptr, 0), 3U);
}

TEST_F(EnvironmentVariable, FollowsEveryChange) {
  setEnvironment(variableName, "one");
  EXPECT_EQ(query(), 3U);
  setEnvironment(variableName, "three");
  EXPECT_EQ(query(), 5U);
  EXPECT_STREQ(buffer_.data(), "three");
}

TEST_F(EnvironmentVariable, GivesZeroAndLeavesTheBufferAsPlanned) {
  setEnvironment(variableName, "value");
  const testsupport::FaultPlan plan(platform::Call::environmentVariable, 1, platform::errorAccessDenied);
  EXPECT_EQ(query(), 0U);
  EXPECT_TRUE(bufferIsUntouched());
  EXPECT_EQ(query(), 5U);
}

}  // namespace
