// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <string>

#include "tests/support/text_pattern.h"

namespace testsupport {

/// Matches a text if all of it matches the pattern (see TextPattern).
MATCHER_P(MatchesPattern, pattern, "has the pattern " + testing::PrintToString(pattern)) {
  return TextPattern(pattern).matches(arg);
}

}  // namespace testsupport
