// SPDX-License-Identifier: MIT
// Two patterns and a name, one a line: the matcher selects what the definition says, and what it says about the two
// patterns holds for the name.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

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

  using boost::logging::detail::NamePattern;
  const NamePattern onePattern(one);
  const NamePattern otherPattern(other);
  const bool oneSelects = onePattern.selects(name);
  const bool otherSelects = otherPattern.selects(name);
  if (oneSelects != testsupport::naiveSelects(one, name)) std::abort();
  if (onePattern.covers(otherPattern) && otherSelects && !oneSelects) std::abort();
  if (oneSelects && otherSelects && !onePattern.meets(otherPattern)) std::abort();
  if (onePattern.covers(otherPattern) && !onePattern.meets(otherPattern)) std::abort();
  if (onePattern.meets(otherPattern) != otherPattern.meets(onePattern)) std::abort();
  return 0;
}
