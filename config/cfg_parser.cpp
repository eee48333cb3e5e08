// SPDX-License-Identifier: MIT
#include "config/cfg_parser.h"

#include <utility>

#include "config/text_replacement.h"

namespace {

// "//" counts only after a blank or a line end, so that "x://y" can be a value; nothing stands before the first
// character, so it does not count there.
bool startsComment(const std::string& _text, std::size_t _position) {
  if (_text[_position] == '#') return true;
  if (_position == 0 || _text.compare(_position, 2, "//") != 0) return false;
  const char before = _text[_position - 1];
  return before == '\n' || before == ' ' || before == '\t';
}

// What is between two stores: a key, then its value.
class PairScanner {
 public:
  // Takes the next character that belongs to no comment.
  void take(char _c) {
    if (endsPair(_c)) {
      store();
    } else if (inValue_) {
      pending_.value += _c;
    } else if (_c == '=' || _c == ':') {
      inValue_ = true;
    } else if (_c != '\n') {
      pending_.key += _c;
    }
  }

  std::vector<CfgPair> pairs() && { return std::move(pairs_); }

 private:
  // A line feed that meets an empty key or value belongs to the value instead.
  bool endsPair(char _c) const { return inValue_ && _c == '\n' && !pending_.key.empty() && !pending_.value.empty(); }

  void store() {
    pairs_.push_back(std::exchange(pending_, CfgPair()));
    inValue_ = false;
  }

  CfgPair pending_;
  bool inValue_ = false;
  std::vector<CfgPair> pairs_;
};

}  // namespace

void expandTabs(std::string& _text) { _text = replaceAll(_text, "\t", "        "); }

std::vector<CfgPair> scanCfgText(const std::string& _text) {
  PairScanner scanner;
  for (std::size_t i = 0; i < _text.size(); ++i) {
    if (startsComment(_text, i)) i = _text.find('\n', i);
    if (i == std::string::npos) break;
    scanner.take(_text[i]);
  }
  return std::move(scanner).pairs();
}
