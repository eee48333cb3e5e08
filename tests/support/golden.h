// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace testsupport {

/// Compares a text byte for byte with the approved file tests/golden/<_name>. If they differ, writes the text to
/// <_name>.received in the working folder, for review; with QMRK_RENEW_GOLDENS=1 in the environment, replaces the
/// approved file instead, to be reviewed as a change.
::testing::AssertionResult matchesGolden(const std::string& _text, const std::string& _name);

}  // namespace testsupport
