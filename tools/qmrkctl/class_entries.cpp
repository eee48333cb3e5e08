// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_entries.h"

#include <algorithm>

#include "logmanager/names/glob.h"
#include "logmanager/names/name_pattern.h"
#include "logsetup/class_list.h"

namespace qmrkctl {
namespace {

using boost::logging::detail::globsMeet;
using boost::logging::detail::NamePattern;

// The text without line ends, and where each character of it stands.
struct Joined {
  std::string text;
  std::vector<std::size_t> positions;
};

Joined joinLines(std::string_view _text) {
  Joined joined;
  for (std::size_t i = 0; i < _text.size(); ++i) {
    if (_text[i] == '\n') continue;
    joined.text += _text[i];
    joined.positions.push_back(i);
  }
  return joined;
}

}  // namespace

std::vector<ClassEntry> enabledClasses(std::string_view _text) {
  Joined joined = joinLines(_text);
  std::vector<ClassEntry> entries;
  if (joined.text.empty()) return entries;
  if (joined.text.back() != ';') {
    joined.text += ';';
    joined.positions.push_back(_text.size());
  }
  std::size_t begin = 0;
  Quillmark_logging::forEachClass(joined.text, [&](const std::string& _class, int) {
    const std::size_t first = joined.positions[begin];
    const std::size_t last = joined.positions[begin + std::max<std::size_t>(_class.size(), 1) - 1];
    const bool isOverLines = _text.substr(first, last - first).find('\n') != std::string_view::npos;
    entries.push_back({_class, first, isOverLines});
    begin += _class.size() + 1;
  });
  return entries;
}

std::vector<ClassEntry> filterClasses(std::string_view _value) {
  std::vector<ClassEntry> entries;
  std::size_t begin = 0;
  Quillmark_logging::forEachClass(std::string(_value), [&](const std::string& _class, int) {
    entries.push_back({_class, begin, false});
    begin += _class.size() + 1;
  });
  return entries;
}

bool selectACommonLog(std::string_view _one, std::string_view _other) {
  for (const std::string& one : NamePattern(_one).globs()) {
    for (const std::string& other : NamePattern(_other).globs()) {
      if (globsMeet(one, other)) return true;
    }
  }
  return false;
}

bool selects(std::string_view _pattern, std::string_view _log) { return NamePattern(_pattern).selects(_log); }

}  // namespace qmrkctl
