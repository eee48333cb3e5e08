// SPDX-License-Identifier: MIT
// Two patterns and a name, one a line: the matcher selects what the definition says, and what it says about the two
// patterns holds for the name.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "logmanager/names/glob.h"
#include "logmanager/names/name_pattern.h"
#include "tests/logmanager/names/name_pattern_oracle.h"

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  if (_size > 200) return 0;
  std::istringstream lines(std::string(_data, _data + _size));
  std::string one;
  std::string other;
  std::string name;
  std::getline(lines, one);
  std::getline(lines, other);
  std::getline(lines, name);

  using boost::logging::detail::globMatches;
  using boost::logging::detail::globsMeet;
  using boost::logging::detail::NamePattern;
  const NamePattern pattern(one);
  if (pattern.selects(name) != testsupport::naiveSelects(one, name)) std::abort();
  const auto globs = pattern.globs();
  const auto matchesName = [&name](std::string_view _glob) { return globMatches(_glob, name); };
  if (std::ranges::any_of(globs, matchesName) != pattern.selects(name)) std::abort();
  const NamePattern otherPattern(other);
  const std::string otherGlob(otherPattern.text());
  for (const std::string& glob : globs) {
    const bool covers = globMatches(glob, otherGlob);
    const bool meets = globsMeet(glob, otherGlob);
    if (covers && matchesName(otherGlob) && !matchesName(glob)) std::abort();
    if (covers && !meets) std::abort();
    if (matchesName(glob) && matchesName(otherGlob) && !meets) std::abort();
    if (meets != globsMeet(otherGlob, glob)) std::abort();
  }
  return 0;
}
