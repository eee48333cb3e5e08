// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace testsupport {

/// Compares a text byte for byte with the approved file tests/golden/<_name>. On a difference the text is written to
/// <_name>.received beside the test program's working folder, for review; with QMRK_RENEW_GOLDENS=1 in the environment
/// the approved file is replaced instead, to be reviewed as a change.
::testing::AssertionResult matchesGolden(const std::string& _text, const std::string& _name);

}  // namespace testsupport
