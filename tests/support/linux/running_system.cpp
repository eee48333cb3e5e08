// SPDX-License-Identifier: MIT
#include "tests/support/running_system.h"

#include <algorithm>

// Only under a sanitizer.
// NOLINTNEXTLINE(readability-identifier-naming): the name is libsanitizer's
extern "C" void __sanitizer_print_stack_trace() __attribute__((weak));

namespace testsupport {

int rounds(int _full) { return &__sanitizer_print_stack_trace == nullptr ? _full : std::max(1, _full / 5); }

bool cannotRunUnderWine(const std::string& /*_reason*/) { return false; }

}  // namespace testsupport
