// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/entry_check.h"

#include <algorithm>
#include <array>

namespace qmrkctl {
namespace {

// What somebody wrote in an entry who expected it to have a meaning.
struct Mistake {
  std::string_view characters;
  std::string_view fix;
};

constexpr std::string_view useSeparator = "separate the entries by \";\"";
constexpr std::string_view deleteQuotes = "delete the quotes";
constexpr std::string_view deleteInvisible = "delete the character, which no editor shows";

constexpr Mistake mistakes[] = {
    {"\"'", deleteQuotes},
    {"?", "write \"*\" for any characters; \"?\" stands for itself"},
    {"=", "write the classes alone: a class list has no keys"},
    {"()[]{}", "write each class as an entry of its own, without brackets"},
    {",|&<>", useSeparator},
};

// The same for characters of several bytes, in UTF-8, which look like others or like nothing.
constexpr Mistake longMistakes[] = {
    {"\xEF\xBC\x9B", useSeparator},                                        // full-width ";"
    {"\xCD\xBE", useSeparator},                                            // Greek "?", which looks like ";"
    {"\xE2\x80\x8B", deleteInvisible},                                     // blank without width
    {"\xE2\x80\x8C", deleteInvisible},                                     // and two of its kind
    {"\xE2\x80\x8D", deleteInvisible}, {"\xE2\x81\xA0", deleteInvisible},  // word joiner
    {"\xEF\xBB\xBF", deleteInvisible},                                     // byte-order mark
    {"\xC2\xA0", "delete the blank"},                                      // no-break blank
    {"\xE2\x80\x9C", deleteQuotes},                                        // printed quotes
    {"\xE2\x80\x9D", deleteQuotes},    {"\xE2\x80\x9E", deleteQuotes},
};

bool isBlankBeside(char _c) { return _c == ' ' || _c == '\t'; }

// Names are parts with "." between them.
bool hasEmptyPart(std::string_view _pattern) {
  return _pattern.starts_with('.') || _pattern.ends_with('.') || _pattern.find("..") != std::string_view::npos;
}

bool isControl(char _c) { return (_c >= '\0' && _c < ' ' && _c != '\t') || _c == '\x7F'; }

// Empty: there is none.
std::string_view fixOfMistake(std::string_view _pattern) {
  for (const Mistake& mistake : mistakes) {
    if (_pattern.find_first_of(mistake.characters) != std::string_view::npos) return mistake.fix;
  }
  for (const Mistake& mistake : longMistakes) {
    if (_pattern.find(mistake.characters) != std::string_view::npos) return mistake.fix;
  }
  return std::ranges::any_of(_pattern, isControl) ? deleteInvisible : std::string_view();
}

bool isExclusion(std::string_view _pattern) { return _pattern.starts_with('!') || _pattern.starts_with('-'); }

}  // namespace

bool isSoundEntry(std::string_view _pattern) {
  return !_pattern.empty() && !isBlankBeside(_pattern.front()) && !isBlankBeside(_pattern.back()) &&
         !hasEmptyPart(_pattern) && fixOfMistake(_pattern).empty() && !isExclusion(_pattern);
}

void checkEntry(const ClassEntry& _entry, const FindingPlace& _place, Findings& _findings) {
  const std::string& pattern = _entry.pattern;
  if (isSoundEntry(pattern)) return;
  const std::string text = "the entry is " + inQuotes(pattern);
  if (pattern.empty()) {
    _findings.push_back(findingOf("Q407", _place, "an entry is empty"));
  } else if (isBlankBeside(pattern.front()) || isBlankBeside(pattern.back())) {
    _findings.push_back(findingOf("Q402", _place, "a blank stands beside the entry " + inQuotes(pattern)));
  } else if (const std::string_view fix = fixOfMistake(pattern); !fix.empty()) {
    _findings.push_back(findingOf("Q410", _place, text, std::string(fix)));
  } else if (isExclusion(pattern)) {
    _findings.push_back(findingOf("Q410", _place, text, "delete it: a class is off unless an entry selects it",
                                  "nothing is excluded: " + pattern.substr(1) + " stays as the other entries say"));
  } else {
    _findings.push_back(findingOf("Q410", _place, text, "delete the surplus \".\"",
                                  "no class has an empty part in its name, so nothing is selected"));
  }
}

void checkDroppedEntry(std::string_view _dropped, const FindingPlace& _place, Findings& _findings) {
  const std::string text = "the last entry of the filter, " + inQuotes(_dropped) + ", has no \";\"";
  const std::string dropped(_dropped);
  if (dropped == "\"" || dropped == "'") {
    _findings.push_back(findingOf("Q410", _place, "the filter ends with a quote", std::string(deleteQuotes)));
  } else if (dropped == "\\") {
    _findings.push_back(findingOf("Q401", _place, text, "write all entries in one line: \"\\\" continues none",
                                  "it is dropped, and the next line is a key of its own"));
  } else {
    _findings.push_back(findingOf("Q401", _place, text, "write " + inQuotes(dropped + ";"),
                                  "it is dropped: " + dropped + " does not write to the common log"));
  }
}

}  // namespace qmrkctl
