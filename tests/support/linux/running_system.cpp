// SPDX-License-Identifier: MIT
#include "tests/support/running_system.h"

namespace testsupport {

int rounds(int _full) { return _full; }

bool cannotRunUnderWine(const std::string& /*_reason*/) { return false; }

}  // namespace testsupport
