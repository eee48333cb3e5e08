// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>
#include <set>

#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/check/entry_check.h"
#include "tools/qmrkctl/check/known_classes.h"
#include "tools/qmrkctl/check/reach_check.h"
#include "tools/qmrkctl/class_entries.h"

namespace qmrkctl {
namespace {

constexpr FindingKind classListTable[] = {
    {"Q401", Severity::error, "The filter does not end with \";\"", "what follows the last \";\" is dropped",
     "end every entry with \";\", the last one too", "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net"},
    {"Q402", Severity::error, "A blank stands beside an entry", "the blank belongs to the name of the class",
     "delete the blank", "Demo.App; Demo.Net;"},
    {"Q403", Severity::error, "A comment stands in a class list",
     "there are no comments: the line is the name of a class, and joins the entry behind it", "delete the comment",
     "# errors only"},
    {"Q404", Severity::error, "Entries of two lines are joined",
     "line ends separate nothing: the lines become one class, which no application has", "end every line with \";\"",
     "Demo.App, line end, Demo.Net;"},
    {"Q405", Severity::warning, "A class is on but not in the filter", "it does not reach the common log",
     "add the class to COMMON_LOG_FILE_FILTER, or remove it from the class list", ""},
    {"Q406", Severity::warning, "No running application has a log of that class", "the entry switches nothing on",
     "correct the name of the class, or start the application that has it", "Demo.Ap;"},
    {"Q407", Severity::warning, "An entry is empty", "it selects only the log with the empty name",
     "delete the surplus \";\"", "Demo.App;;Demo.Net;"},
    {"Q408", Severity::note, "The class list is empty", "all classes are off", "add classes, each ended by \";\"", ""},
    {"Q409", Severity::warning, "A class is probably misspelt", "the entry switches nothing on",
     "correct the entry; if both classes exist, nothing is wrong", "Demo.App.inof;"},
    {"Q410", Severity::error, "A class is written as no name of a class is",
     "entries are taken literally and end at \";\" alone, so nothing is selected", "separate the entries by \";\"",
     "Demo.App,Demo.Net;"},
};

// In long lists it is not worth the time to look for every class that nobody knows.
constexpr int mostSearches = 2000;

bool isBlank(char _c) { return _c == ' ' || _c == '\t'; }

// The place where a comment begins behind an entry.
std::size_t commentBehindEntry(std::string_view _line) {
  const std::size_t hash = _line.find('#');
  std::size_t slashes = _line.find("//");
  while (slashes != std::string_view::npos && (slashes == 0 || !isBlank(_line[slashes - 1])))
    slashes = _line.find("//", slashes + 1);
  return std::min(hash, slashes);
}

// An entry that goes on in the next line, and where it begins.
void checkJoined(const ConfigurationFile& _init, const ClassEntry& _entry, const FindingPlace& _place,
                 Findings& _findings) {
  const std::string_view rest = std::string_view(_init.text).substr(_entry.begin);
  if (rest.find_first_not_of(" \t") == rest.find('\n')) {
    _findings.push_back(findingOf("Q402", _place, "a blank stands at the end of the line, behind the \";\"", "",
                                  "the blank belongs to the entry of the next line, " + inQuotes(_entry.pattern)));
  } else {
    _findings.push_back(findingOf("Q404", _place, "entries of two lines are joined to " + inQuotes(_entry.pattern)));
  }
}

// A line of an .init file that is meant as a comment.
bool isCommentLine(std::string_view _line) {
  const std::size_t begin = _line.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return false;
  return _line[begin] == '#' || _line.substr(begin, 2) == "//";
}

std::set<int> checkComments(const ConfigurationFile& _init, Findings& _findings) {
  std::set<int> lines;
  int number = 0;
  for (std::size_t begin = 0; begin < _init.text.size() && lines.size() < mostFindings; ++number) {
    const std::size_t end = std::min(_init.text.find('\n', begin), _init.text.size());
    const std::string_view line = std::string_view(_init.text).substr(begin, end - begin);
    if (isCommentLine(line)) {
      lines.insert(number + 1);
      _findings.push_back(findingOf("Q403", placeIn(_init, {number + 1, 1}),
                                    "the comment " + inQuotes(line) + " stands in the class list"));
    } else if (const std::size_t comment = commentBehindEntry(line); comment != std::string_view::npos) {
      lines.insert(number + 1);
      _findings.push_back(findingOf("Q403", placeIn(_init, {number + 1, static_cast<int>(comment) + 1}),
                                    "the comment " + inQuotes(line.substr(comment)) + " stands in the class list"));
    }
    begin = end + 1;
  }
  return lines;
}

void checkKnown(const ClassEntry& _entry, const FindingPlace& _place, const KnownClasses& _known, Findings& _findings) {
  if (_known.isSelectedBy(_entry.pattern)) return;
  const std::string meant = _known.meantBy(_entry.pattern);
  const std::string question = meant.empty() ? "" : "; did you mean " + meant + "?";
  const std::string fix = meant.empty() ? "" : "write " + meant + ";";
  if (!_known.running().empty()) {
    const std::string text = "no running application has the class " + inQuotes(_entry.pattern);
    _findings.push_back(findingOf("Q406", _place, text + question, fix));
  } else if (!meant.empty()) {
    _findings.push_back(findingOf("Q409", _place, "the class " + inQuotes(_entry.pattern) + " is unknown" + question,
                                  fix + " or leave it if both classes exist"));
  }
}

const Setting* filterOf(const ConfigurationFile& _cfg) {
  const Setting* const filter = _cfg.setting(Quillmark_logging::COMMON_LOG_FILE_FILTER);
  // An empty value has swallowed other lines, which is said of the key.
  return filter != nullptr && filter->value.find('\n') == std::string::npos ? filter : nullptr;
}

}  // namespace

std::span<const FindingKind> classListKinds() { return classListTable; }

void checkFilter(const ConfigurationFile& _cfg, Findings& _findings) {
  const Setting* const filter = filterOf(_cfg);
  if (filter == nullptr) return;
  const auto placeAt = [&](std::size_t _offset) {
    return placeIn(_cfg, {filter->valuePlace.line, filter->valuePlace.column + static_cast<int>(_offset)});
  };
  for (const ClassEntry& entry : filterClasses(filter->value))
    checkEntry(entry, placeAt(entry.begin), _findings);
  const std::size_t rest = filter->value.rfind(';') + 1;
  if (rest < filter->value.size()) checkDroppedEntry(filter->value.substr(rest), placeAt(rest), _findings);
}

void checkClassList(const ConfigurationFile& _init, const ConfigurationFile* _filter, const KnownClasses& _known,
                    Findings& _findings) {
  if (!_init.isRead) return;
  const std::set<int> commented = checkComments(_init, _findings);
  const std::vector<ClassEntry> entries = enabledClasses(_init.text);
  if (entries.empty()) _findings.push_back(findingOf("Q408", placeOf(_init), "the class list is empty"));
  const Setting* const setting = _filter == nullptr ? nullptr : filterOf(*_filter);
  std::optional<ReachCheck> reach;
  if (setting != nullptr) reach.emplace(filterClasses(setting->value), placeIn(*_filter, setting->valuePlace), _known);
  const TextPlaces places(_init.text);
  const std::size_t first = _findings.size();
  int searches = 0;
  for (const ClassEntry& entry : entries) {
    if (_findings.size() - first >= mostFindings) break;
    const TextPlace place = places.of(entry.begin);
    if (commented.contains(place.line)) continue;
    const std::size_t before = _findings.size();
    if (entry.isOverLines) {
      checkJoined(_init, entry, placeIn(_init, place), _findings);
    } else {
      checkEntry(entry, placeIn(_init, place), _findings);
    }
    if (_findings.size() != before) continue;
    if (reach) reach->check(entry, placeIn(_init, place), _findings);
    const bool isNew = _findings.size() == before || !_known.running().empty();
    if (isNew && !_known.contains(entry.pattern) && searches++ < mostSearches) {
      checkKnown(entry, placeIn(_init, place), _known, _findings);
    }
  }
  if (reach) reach->end(_findings);
}

}  // namespace qmrkctl
