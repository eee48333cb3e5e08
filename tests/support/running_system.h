// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// How often a test repeats what it repeats _full times on Linux: as often there, and a twentieth of it (at least once)
/// on Windows, because under Wine a call of the system and a new process cost so much more.
int rounds(int _full);

/// For the few tests that need what Wine does not have: whether this is Wine. Then the reason is printed and put into
/// the report of the tests, which counts such tests.
bool cannotRunUnderWine(const std::string& _reason);

}  // namespace testsupport
