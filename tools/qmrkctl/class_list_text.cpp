// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_list_text.h"

#include <algorithm>
#include <set>

namespace qmrkctl {
namespace {

bool contains(const std::vector<std::string>& _names, std::string_view _name) {
  return std::find(_names.begin(), _names.end(), _name) != _names.end();
}

// CR LF is read as LF; a CR alone belongs to the name.
std::string nameIn(std::string_view _segment) {
  std::string name;
  for (std::size_t i = 0; i < _segment.size(); ++i) {
    const bool isLineEnd = _segment[i] == '\r' && i + 1 < _segment.size() && _segment[i + 1] == '\n';
    if (_segment[i] != '\n' && !isLineEnd) name += _segment[i];
  }
  return name;
}

// Calls _take(segment without its ";", whether it has one) for all of the text.
template <class Take>
void forEachSegment(std::string_view _text, Take _take) {
  while (!_text.empty()) {
    const std::size_t end = _text.find(';');
    _take(_text.substr(0, end), end != std::string_view::npos);
    if (end == std::string_view::npos) return;
    _text.remove_prefix(end + 1);
  }
}

std::size_t lineEndsAtEnd(std::string_view _text) {
  const std::size_t last = _text.find_last_not_of("\r\n");
  return _text.size() - (last == std::string_view::npos ? 0 : last + 1);
}

std::string_view lineEndOf(std::string_view _text) {
  return _text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
}

}  // namespace

std::vector<std::string> classesIn(std::string_view _text) {
  std::vector<std::string> names;
  forEachSegment(_text, [&names](std::string_view _segment, bool /*_isEnded*/) {
    std::string name = nameIn(_segment);
    if (!name.empty()) names.push_back(std::move(name));
  });
  return names;
}

std::string withClasses(std::string_view _text, const std::vector<std::string>& _names) {
  const std::vector<std::string> missing = classesMissingIn(_names, classesIn(_text));
  if (missing.empty()) return std::string(_text);
  const std::string_view lineEnd = lineEndOf(_text);
  const std::string_view entries = _text.substr(0, _text.size() - lineEndsAtEnd(_text));
  const bool hasLines = entries.empty() || _text.find('\n') != std::string_view::npos;
  std::string list(entries);
  if (!list.empty() && list.back() != ';') list += ';';
  for (const std::string& name : missing) {
    if (hasLines && !list.empty()) list += lineEnd;
    list += name + ";";
  }
  if (hasLines) list += lineEnd;
  return list;
}

std::string withoutClasses(std::string_view _text, const std::vector<std::string>& _names, bool _onlyOnce) {
  std::string list;
  std::vector<std::string> left = _names;
  bool isChanged = false;
  forEachSegment(_text, [&](std::string_view _segment, bool _isEnded) {
    const std::string name = nameIn(_segment);
    if (!name.empty() && contains(left, name)) {
      isChanged = true;
      if (_onlyOnce) left.erase(std::find(left.begin(), left.end(), name));
      return;
    }
    list += _segment;
    if (_isEnded) list += ';';
  });
  if (!isChanged) return std::string(_text);
  list.erase(0, list.find_first_not_of("\r\n") == std::string::npos ? list.size() : list.find_first_not_of("\r\n"));
  return list.empty() ? std::string(emptyClassList) : list;
}

std::string classListOf(const std::vector<std::string>& _names) { return withClasses("", _names); }

bool isClassName(std::string_view _name) {
  return !_name.empty() && _name.find_first_of(";\r\n") == std::string_view::npos && _name.front() != ' ' &&
         _name.back() != ' ' && _name.find('\0') == std::string_view::npos;
}

std::vector<std::string> classesMissingIn(const std::vector<std::string>& _names,
                                          const std::vector<std::string>& _others) {
  std::vector<std::string> missing;
  std::set<std::string_view> known(_others.begin(), _others.end());
  for (const std::string& name : _names) {
    if (known.insert(name).second) missing.push_back(name);
  }
  return missing;
}

}  // namespace qmrkctl
