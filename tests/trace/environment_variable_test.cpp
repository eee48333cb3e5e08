// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "quillmark_logging.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::getEnvironmentVariable;

constexpr char variableName[] = "QMRK_TEST_VARIABLE";

class EnvironmentVariable : public testing::Test {
 protected:
  ~EnvironmentVariable() override { testsupport::setEnvironment(variableName, ""); }

  bool get(const std::string& _content) {
    testsupport::setEnvironment(variableName, _content);
    return getEnvironmentVariable(variableName, value_);
  }

  std::string value_ = "preset";
};

TEST_F(EnvironmentVariable, GivesTheValueOfASetVariable) {
  EXPECT_TRUE(get("CA12"));
  EXPECT_EQ(value_, "CA12");
}

TEST_F(EnvironmentVariable, LeavesTheValueUntouchedWhenItIsUnset) {
  EXPECT_FALSE(get(""));
  EXPECT_EQ(value_, "preset");
}

TEST_F(EnvironmentVariable, LeavesTheValueUntouchedWhenTheSystemFails) {
  const testsupport::FaultPlan failure(platform::Call::environmentVariable, 1, platform::errorAccessDenied);
  EXPECT_FALSE(get("CA12"));
  EXPECT_EQ(value_, "preset");
}

TEST_F(EnvironmentVariable, GivesAValueThatJustFits) {
  const std::string content(255, 'x');
  EXPECT_TRUE(get(content));
  EXPECT_EQ(value_, content);
}

TEST_F(EnvironmentVariable, GivesAnEmptyTextForAValueThatDoesNotFit) {
  EXPECT_TRUE(get(std::string(256, 'x')));
  EXPECT_EQ(value_, "");
}

TEST_F(EnvironmentVariable, PrintsNoTrace) {
  const testsupport::TracedConsole console;
  EXPECT_TRUE(get("CA12"));
  EXPECT_EQ(console.text(), "");
}

}  // namespace
