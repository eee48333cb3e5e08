// SPDX-License-Identifier: MIT
#include "tests/support/without_read_permission.h"

#include <limits>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"

namespace testsupport {

struct WithoutReadPermission::State {
  AsUnprivilegedUser user;
  FaultPlan plan{platform::Call::readAccessTest, 1, platform::errorAccessDenied, std::numeric_limits<int>::max() / 2};
};

WithoutReadPermission::WithoutReadPermission(const std::string& _path) {
  denyAccess(_path);
  state_ = std::make_unique<State>();
}

WithoutReadPermission::~WithoutReadPermission() = default;

}  // namespace testsupport
