// SPDX-License-Identifier: MIT
#include "config/cfg_parser.h"

#include "config/text_replacement.h"

namespace Quillmark_logging {
namespace {

constexpr char eightBlanks[] = "        ";

// "//" counts only after a blank or a line end, so that "x://y" can be a value; nothing stands before the first
// character, so it does not count there.
bool startsComment(std::string_view _text, std::size_t _position) {
  if (_text[_position] == '#') return true;
  if (_position == 0 || _text.substr(_position, 2) != "//") return false;
  const char before = _text[_position - 1];
  return before == '\n' || before == ' ' || before == '\t';
}

// What is between two stores: a key, then its value.
class PairScanner {
 public:
  explicit PairScanner(const TakeCfgPair& _take) : takePair_(_take) {}

  // Whether nothing is pending, so that a pair may begin.
  bool isEmpty() const { return !inValue_ && key_.empty(); }

  // Takes the next character that belongs to no comment, and its position.
  void take(char _c, std::size_t _position) {
    if (endsPair(_c)) {
      place_.end = _position;
      store();
    } else if (inValue_) {
      value_ += _c;
    } else if (_c == '=' || _c == ':') {
      place_.value = _position + 1;
      inValue_ = true;
    } else if (_c != '\n') {
      if (key_.empty()) place_.key = _position;
      key_ += _c;
    }
  }

 private:
  // A line feed that meets an empty key or value belongs to the value instead.
  bool endsPair(char _c) const { return inValue_ && _c == '\n' && !key_.empty() && !value_.empty(); }

  void store() {
    takePair_(key_, value_, place_);
    key_.clear();
    value_.clear();
    inValue_ = false;
  }

  const TakeCfgPair& takePair_;
  std::string key_;
  std::string value_;
  CfgPairPlace place_;
  bool inValue_ = false;
};

// Takes a line that holds nothing but a key, a separator and a value, as most do; false when it holds anything else.
// @param _begin position of the line in the text.
bool takePlainLine(std::string_view _line, std::size_t _begin, const TakeCfgPair& _take) {
  std::size_t separator = std::string_view::npos;
  for (std::size_t i = 0; i < _line.size(); ++i) {
    const char c = _line[i];
    if (c == '#' || c == '/') return false;
    if (separator == std::string_view::npos && (c == '=' || c == ':')) separator = i;
  }
  if (separator == std::string_view::npos || separator == 0 || separator + 1 == _line.size()) return false;
  _take(_line.substr(0, separator), _line.substr(separator + 1),
        {_begin, _begin + separator + 1, _begin + _line.size()});
  return true;
}

}  // namespace

void expandTabs(std::string& _text) {
  if (_text.find('\t') != std::string::npos) _text = replaceAll(_text, "\t", eightBlanks);
}

std::string withTabsExpanded(std::string_view _text) {
  std::string text(_text);
  expandTabs(text);
  return text;
}

void forEachCfgPair(std::string_view _text, const TakeCfgPair& _take) {
  PairScanner scanner(_take);
  for (std::size_t i = 0; i < _text.size(); ++i) {
    if (scanner.isEmpty()) {
      const std::size_t lineEnd = _text.find('\n', i);
      // What has no end is dropped, whatever it is.
      if (lineEnd == std::string_view::npos) return;
      if (takePlainLine(_text.substr(i, lineEnd - i), i, _take)) {
        i = lineEnd;
        continue;
      }
    }
    if (startsComment(_text, i)) i = _text.find('\n', i);
    if (i == std::string_view::npos) return;
    scanner.take(_text[i], i);
  }
}

std::vector<CfgPair> scanCfgText(std::string_view _text) {
  std::vector<CfgPair> pairs;
  forEachCfgPair(_text, [&pairs](std::string_view _key, std::string_view _value, const CfgPairPlace&) {
    pairs.push_back({withTabsExpanded(_key), withTabsExpanded(_value)});
  });
  return pairs;
}

}  // namespace Quillmark_logging
