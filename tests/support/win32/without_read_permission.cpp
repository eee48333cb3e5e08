// SPDX-License-Identifier: MIT
#include "tests/support/without_read_permission.h"

#include "tests/support/fault_plan.h"

namespace testsupport {

struct WithoutReadPermission::State {
  FaultPlan plan;
};

WithoutReadPermission::WithoutReadPermission(const std::string& /*_path*/, int _nth)
    : state_(new State{{platform::Call::accessTest, _nth, platform::errorAccessDenied}}) {}

WithoutReadPermission::~WithoutReadPermission() = default;

}  // namespace testsupport
