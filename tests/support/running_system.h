// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// How often a test repeats something: _full times on Linux, a fifth of that under a sanitizer, which finds what it
/// finds sooner and takes longer; and a twentieth on Windows, because system calls and new processes cost much more
/// under Wine. At least once.
int rounds(int _full);

/// For the few tests that need what Wine lacks: whether this is Wine. If so, prints the reason and puts it into the
/// report of the tests, which counts such tests.
bool cannotRunUnderWine(const std::string& _reason);

}  // namespace testsupport
