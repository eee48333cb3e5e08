// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/reach_check.h"

#include <algorithm>
#include <utility>

#include "tools/qmrkctl/check/entry_check.h"
#include "tools/qmrkctl/check/similar_name.h"

namespace qmrkctl {
namespace {

std::string inLowerCase(std::string_view _text) {
  std::string lower(_text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

// As names of classes are written in programs.
std::string withPoints(std::string _pattern) {
  for (std::size_t at = _pattern.find("::"); at != std::string::npos; at = _pattern.find("::", at))
    _pattern.replace(at, 2, ".");
  return _pattern;
}

}  // namespace

ReachCheck::ReachCheck(std::vector<ClassEntry> _filter, FindingPlace _place, const KnownClasses& _known)
    : filter_(std::move(_filter)), filterPlace_(std::move(_place)), known_(_known) {}

void ReachCheck::check(const ClassEntry& _entry, const FindingPlace& _place, Findings& _findings) {
  const std::string& pattern = _entry.pattern;
  const std::string text = "the class " + inQuotes(pattern) + " is on but not in the filter";
  if (passing(pattern) != nullptr) {
    hasPassed_ = true;
  } else if (isRowOfEntries(pattern)) {
    _findings.push_back(
        findingOf("Q410", _place, "the entry is " + inQuotes(pattern), "separate the entries by \";\""));
  } else if (isSameIgnoringCase(pattern, "all")) {
    _findings.push_back(findingOf("Q405", _place, text, "write *; which selects every class",
                                  "it is the name of one class like any other"));
  } else if (const Meant meant = meantBy(pattern); meant.by != nullptr) {
    addMisspelt(_entry, _place, meant, _findings);
  } else {
    _findings.push_back(findingOf("Q405", _place, text));
  }
}

void ReachCheck::end(Findings& _findings) const {
  if (hasPassed_) return;
  for (const std::size_t index : misspelt_) {
    _findings[index].severity = Severity::error;
    _findings[index].effect = "no class that is on is in the filter: nothing reaches the common log";
  }
}

const ClassEntry* ReachCheck::passing(std::string_view _pattern) const {
  const auto found = std::ranges::find_if(
      filter_, [&](const ClassEntry& _entry) { return selectACommonLog(_pattern, _entry.pattern); });
  return found == filter_.end() ? nullptr : &*found;
}

// Several classes with something else than ";" between them.
bool ReachCheck::isRowOfEntries(std::string_view _pattern) const {
  int count = 0;
  while (!_pattern.empty()) {
    const std::string_view piece = _pattern.substr(0, _pattern.find_first_of(" \t:/"));
    _pattern.remove_prefix(std::min(_pattern.size(), piece.size() + 1));
    if (piece.empty()) continue;
    if (passing(piece) == nullptr) return false;
    ++count;
  }
  return count > 1;
}

ReachCheck::Meant ReachCheck::meantBy(const std::string& _pattern) const {
  const std::string points = withPoints(_pattern);
  if (const ClassEntry* const entry = passing(points); entry != nullptr) return {points, entry};
  std::vector<std::string_view> names;
  for (const ClassEntry& entry : filter_) {
    if (isSoundEntry(entry.pattern)) names.emplace_back(entry.pattern);
  }
  const std::string similar = similarName(_pattern, names);
  const std::string lower = inLowerCase(_pattern);
  for (const ClassEntry& entry : filter_) {
    const bool isNear = entry.pattern == similar || withPoints(entry.pattern) == _pattern ||
                        selectACommonLog(lower, inLowerCase(entry.pattern));
    if (isNear && isSoundEntry(entry.pattern)) return {entry.pattern, &entry};
  }
  return {};
}

// Classes that exist tell which of the two is wrong.
void ReachCheck::addMisspelt(const ClassEntry& _entry, const FindingPlace& _place, const Meant& _meant,
                             Findings& _findings) {
  FindingPlace inFilter = filterPlace_;
  inFilter.column += static_cast<int>(_meant.by->begin);
  const bool isListSound = known_.isSelectedBy(_entry.pattern);
  const bool isFilterSound = known_.isSelectedBy(_meant.by->pattern);
  misspelt_.push_back(_findings.size());
  if (isListSound && !isFilterSound) {
    _findings.push_back(findingOf(
        "Q405", inFilter,
        "the filter has " + inQuotes(_meant.by->pattern) + ", but the class that is on is " + inQuotes(_entry.pattern),
        "write " + _entry.pattern + "; in the filter"));
    return;
  }
  const std::string text =
      "the class " + inQuotes(_entry.pattern) + " is on but not in the filter; did you mean " + _meant.name + "?";
  std::string fix = "write " + _meant.name + ";";
  if (!isFilterSound || isListSound) {
    fix += " or, if the class list is right, " + _entry.pattern + "; in the filter, " + inFilter.file + ":" +
           std::to_string(inFilter.line);
  }
  _findings.push_back(findingOf("Q405", _place, text, fix));
}

}  // namespace qmrkctl
