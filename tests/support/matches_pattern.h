// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <regex>
#include <string>

namespace testsupport {

/// Matches a text that as a whole has the pattern, a regular expression of ECMAScript. (GoogleTest's own expressions
/// differ between the systems.)
MATCHER_P(MatchesPattern, pattern, "has the pattern " + testing::PrintToString(pattern)) {
  return std::regex_match(std::string(arg), std::regex(pattern));
}

}  // namespace testsupport
