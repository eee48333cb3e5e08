// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/system_version.h"
#include "tests/support/fault_plan.h"

namespace {

using platform::Call;
using testsupport::FaultPlan;

TEST(NoSystemVersion, FailsBothQueriesAndLeavesTheBlockUntouched) {
  const FaultPlan plan(Call::systemVersion, 100, platform::errorAccessDenied);
  platform::VersionBlock block;
  block.major = 7;
  block.servicePack = "untouched";
  EXPECT_FALSE(platform::queryVersion(platform::VersionQuery::extended, block));
  EXPECT_FALSE(platform::queryVersion(platform::VersionQuery::basic, block));
  EXPECT_EQ(block.major, 7U);
  EXPECT_EQ(block.servicePack, "untouched");
  EXPECT_EQ(plan.calls(), 2);
}

TEST(NoSystemVersion, FindsNoRegistry) {
  const FaultPlan plan(Call::registry, 100, platform::errorAccessDenied);
  std::string text = "untouched";
  EXPECT_FALSE(platform::registryKeyExists("SOFTWARE"));
  EXPECT_EQ(platform::readRegistryText("SOFTWARE", "value", text), platform::RegistryResult::noKey);
  EXPECT_EQ(text, "untouched");
  EXPECT_EQ(plan.calls(), 2);
}

}  // namespace
