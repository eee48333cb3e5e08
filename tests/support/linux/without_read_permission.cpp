// SPDX-License-Identifier: MIT
#include "tests/support/without_read_permission.h"

#include "tests/support/as_unprivileged_user.h"

namespace testsupport {

struct WithoutReadPermission::State {
  AsUnprivilegedUser user;
};

WithoutReadPermission::WithoutReadPermission(const std::string& _path) {
  denyAccess(_path);
  state_ = std::make_unique<State>();
}

WithoutReadPermission::~WithoutReadPermission() = default;

}  // namespace testsupport
