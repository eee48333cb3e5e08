// SPDX-License-Identifier: MIT
#include "tools/system/linux/process_text.h"

#include <sstream>

namespace toolsystem {

Activity activityOfStat(std::string_view _text) {
  const std::size_t nameEnd = _text.rfind(')');
  if (nameEnd == std::string_view::npos || nameEnd + 2 >= _text.size()) return Activity::ended;
  switch (_text[nameEnd + 2]) {
    case 'T':
    case 't':
      return Activity::stopped;
    case 'Z':
    case 'X':
    case 'x':
      return Activity::ended;
    default:
      return Activity::running;
  }
}

std::string nameOfStat(std::string_view _text) {
  const std::size_t begin = _text.find('(');
  const std::size_t end = _text.rfind(')');
  if (begin == std::string_view::npos || end == std::string_view::npos || end <= begin) return "";
  return std::string(_text.substr(begin + 1, end - begin - 1));
}

std::optional<std::uint32_t> effectiveUserId(std::string_view _text) {
  constexpr std::string_view key = "\nUid:";
  const std::size_t begin = _text.find(key);
  if (begin == std::string_view::npos) return std::nullopt;
  std::istringstream numbers(std::string(_text.substr(begin + key.size(), 64)));
  std::uint32_t real = 0;
  std::uint32_t effective = 0;
  if (!(numbers >> real >> effective)) return std::nullopt;
  return effective;
}

std::uint32_t mappedUserId(const std::string& _map, const std::string& _ownMap, std::uint32_t _userId) {
  if (_map == _ownMap) return _userId;
  std::istringstream lines(_map);
  std::uint64_t inside = 0;
  std::uint64_t outside = 0;
  std::uint64_t length = 0;
  while (lines >> inside >> outside >> length) {
    if (_userId >= outside && _userId - outside < length) return static_cast<std::uint32_t>(inside + _userId - outside);
  }
  return _userId;
}

}  // namespace toolsystem
