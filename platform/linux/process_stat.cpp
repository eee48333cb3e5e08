// SPDX-License-Identifier: MIT
#include "platform/linux/process_stat.h"

#include <charconv>

namespace platform {
namespace {

// How many fields stand between the end of the name and the start time; the first of them is the state.
constexpr int fieldsBefore = 19;

}  // namespace

std::uint64_t startTimeOfStat(std::string_view _text) {
  const std::size_t nameEnd = _text.rfind(')');
  if (nameEnd == std::string_view::npos || nameEnd + 2 >= _text.size()) return 0;
  std::string_view rest = _text.substr(nameEnd + 2);
  if (rest.front() == 'Z' || rest.front() == 'X' || rest.front() == 'x') return 0;
  for (int field = 0; field < fieldsBefore; ++field) {
    const std::size_t blank = rest.find(' ');
    if (blank == std::string_view::npos) return 0;
    rest.remove_prefix(blank + 1);
  }
  std::uint64_t time = 0;
  std::from_chars(rest.data(), rest.data() + rest.size(), time);
  return time;
}

}  // namespace platform
