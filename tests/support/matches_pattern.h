// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <string>

#include "tests/support/text_pattern.h"

namespace testsupport {

/// Matches a text if the whole of it has the pattern.
MATCHER_P(MatchesPattern, pattern, "has the pattern " + testing::PrintToString(pattern)) {
  return TextPattern(pattern).matches(arg);
}

}  // namespace testsupport
