// SPDX-License-Identifier: MIT
#include "tests/support/linux/system_calls.h"

#include <gtest/gtest.h>

#include "tests/support/linux/traced_child.h"

namespace testsupport {

std::vector<long> systemCallsOf(const std::function<void()>& _function) {
  std::vector<long> calls;
  const int status = runTraced(
      [&_function] {
        markCalls();
        _function();
        markCalls();
        return 0;
      },
      [&calls](long _call) {
        calls.push_back(_call);
        return CallFate();
      });
  EXPECT_EQ(status, 0) << "the child did not run to its end";
  return calls;
}

}  // namespace testsupport
