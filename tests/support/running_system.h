// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// How often a test repeats something: _full times on Linux; a fifth of that under a sanitizer, which is slower but
/// needs fewer rounds; a twentieth on Windows, because system calls and new processes cost more under Wine; at least 1.
int rounds(int _full);

/// For the few tests that need what Wine lacks: whether this is Wine. If so, prints the reason and adds it to the test
/// report, which counts such tests.
bool cannotRunUnderWine(const std::string& _reason);

}  // namespace testsupport
