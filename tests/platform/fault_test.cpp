// SPDX-License-Identifier: MIT
#include "platform/fault.h"

#include <gtest/gtest.h>

#include "tests/support/fault_plan.h"

namespace {

using platform::Call;
using platform::injectedFault;
using testsupport::CallHook;
using testsupport::FaultPlan;

TEST(Fault, NeedsAPlan) { EXPECT_EQ(injectedFault(Call::write), platform::noError); }

TEST(Fault, FailsThePlannedCallOnly) {
  const FaultPlan plan(Call::write, 2, platform::errorDiskFull);
  EXPECT_EQ(injectedFault(Call::write), platform::noError);
  EXPECT_EQ(injectedFault(Call::write), platform::errorDiskFull);
  EXPECT_EQ(injectedFault(Call::write), platform::noError);
  EXPECT_EQ(plan.calls(), 3);
}

TEST(Fault, LeavesOtherKindsOfCallsAlone) {
  const FaultPlan plan(Call::write, 1, platform::errorDiskFull, 100);
  EXPECT_EQ(injectedFault(Call::read), platform::noError);
}

TEST(Fault, EndsWithTheObjectOfThePlan) {
  { const FaultPlan plan(Call::write, 1, platform::errorDiskFull, 100); }
  EXPECT_EQ(injectedFault(Call::write), platform::noError);
}

TEST(Fault, RunsAHookOnceBeforeItsCall) {
  int runs = 0;
  const CallHook hook(Call::write, 2, [&runs] { ++runs; });
  EXPECT_EQ(injectedFault(Call::write), platform::noError);
  EXPECT_EQ(runs, 0);
  EXPECT_EQ(injectedFault(Call::write), platform::noError);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(injectedFault(Call::write), platform::noError);
  EXPECT_EQ(runs, 1);
}

}  // namespace
