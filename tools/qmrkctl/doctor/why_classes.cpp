// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cctype>

#include "logmanager/names/name_pattern.h"
#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/logs/message_filter.h"
#include "tools/qmrkctl/class_entries.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/doctor/why_chain.h"
#include "tools/qmrkctl/doctor/why_faults.h"

namespace qmrkctl {
namespace {

using platform::nativePath;

// The entries of a class list that select the class.
struct Selection {
  std::string entry;     ///< the first that does; empty: none
  std::string nearMiss;  ///< else one that almost does
  bool isSelected = false;
};

std::string lowerTrimmed(std::string _text) {
  const auto isBlank = [](unsigned char _c) { return std::isspace(_c) != 0; };
  _text.erase(_text.begin(), std::ranges::find_if_not(_text, isBlank));
  while (!_text.empty() && isBlank(static_cast<unsigned char>(_text.back())))
    _text.pop_back();
  std::ranges::transform(_text, _text.begin(), [](unsigned char _c) { return static_cast<char>(std::tolower(_c)); });
  return _text;
}

Selection selectionOf(const std::vector<std::string>& _entries, const std::string& _class) {
  using boost::logging::detail::NamePattern;
  Selection selection;
  for (const std::string& entry : _entries) {
    if (NamePattern(entry).selects(_class)) return {entry, "", true};
    const std::string plain = lowerTrimmed(entry);
    if (!plain.empty() && NamePattern(plain).selects(lowerTrimmed(_class))) selection.nearMiss = entry;
  }
  return selection;
}

std::string hint(const Selection& _selection) {
  return _selection.nearMiss.empty() ? "" : "; \"" + _selection.nearMiss + "\" differs in blanks or letter case";
}

std::vector<std::string> withoutUnfinished(std::vector<std::string> _entries, const std::string& _list) {
  if (!_list.ends_with(';')) _entries.pop_back();
  return _entries;
}

// By that of its set-up an application has connected its log, whatever the file says now.
// @return whether that decides.
bool addFilterOfSetUp(const WhyQuestion& _question, StepList& _steps) {
  const ProcessStatus* const status = statusOf(_question);
  const Configuration& configuration = _question.seen->configuration;
  const bool isLost = hasLostCfg(_question) && !status->classes.filter.isCut;
  if (!isLost && (status == nullptr || !hasOtherFilter(*status, configuration))) return false;
  const std::string now = isLost ? "; its file cannot be read now" : "; the file has another one now";
  const std::string& filter = status->classes.filter.text;
  const Selection selection = selectionOf(withoutUnfinished(patternsOf(filter), filter), _question.logClass);
  if (selection.isSelected) {
    _steps.ok("filter", "\"" + selection.entry + "\" in that of the set-up" + now);
  } else {
    _steps.fail("filter", findingOf("Q613", {nativePath(configuration.cfg.path), 0, 0},
                                    "the filter of the set-up does not select " + _question.logClass + now));
  }
  return true;
}

void addFilterStep(const WhyQuestion& _question, StepList& _steps) {
  const ConfigurationFile& cfg = _question.seen->configuration.cfg;
  const Setting* const filter = cfg.setting(Quillmark_logging::COMMON_LOG_FILE_FILTER);
  Finding finding = {"Q405",
                     Severity::error,
                     nativePath(cfg.path),
                     filter == nullptr ? 0 : filter->valuePlace.line,
                     filter == nullptr ? 0 : filter->valuePlace.column,
                     "no entry of COMMON_LOG_FILE_FILTER selects " + _question.logClass,
                     "the class does not reach the common log, at most the log of an application",
                     "add \"" + _question.logClass + ";\" to COMMON_LOG_FILE_FILTER, then restart the application"};
  if (const Finding* const fault =
          filter == nullptr ? faultOfKey(_question, Quillmark_logging::COMMON_LOG_FILE_FILTER) : nullptr) {
    _steps.failBy("filter", *fault);
    return;
  }
  if (filter == nullptr) {
    finding.code = "Q312";
    finding.text = "COMMON_LOG_FILE_FILTER is missing";
    _steps.fail("filter", finding);
    return;
  }
  const std::vector<std::string> all = patternsOf(filter->value);
  const Selection selection = selectionOf(withoutUnfinished(all, filter->value), _question.logClass);
  if (selection.isSelected) {
    _steps.ok("filter", "\"" + selection.entry + "\" in line " + std::to_string(filter->keyPlace.line));
    return;
  }
  if (const Finding* const fault = faultOfFilter(_question)) {
    _steps.failBy("filter", *fault);
    return;
  }
  if (selectionOf(all, _question.logClass).isSelected) {
    finding.code = "Q401";
    finding.text = "\"" + all.back() + "\" stands behind the last \";\" of COMMON_LOG_FILE_FILTER and does not count";
    finding.fix = "end COMMON_LOG_FILE_FILTER with \";\", then restart the application";
  }
  finding.text += hint(selection);
  _steps.fail("filter", finding);
}

// What an entry that differs in blanks or letter case should be.
std::string fixOfNearMiss(const std::string& _entry, const std::string& _class) {
  const std::string plain = lowerTrimmed(_entry);
  const bool isBeginning = lowerTrimmed(_class).starts_with(plain);
  const std::string meant = isBeginning ? _class.substr(0, plain.size()) : _class;
  return "write \"" + meant + ";\" in place of \"" + _entry + ";\"";
}

FindingPlace placeOfEntry(const ConfigurationFile& _init, const std::string& _entry) {
  const std::vector<ClassEntry> entries = enabledClasses(_init.text);
  const auto found = std::ranges::find(entries, _entry, &ClassEntry::pattern);
  if (_entry.empty() || found == entries.end()) return {nativePath(_init.path), 0, 0};
  const TextPlace place = TextPlaces(_init.text).of(found->begin);
  return {nativePath(_init.path), place.line, place.column};
}

void addListStep(const WhyQuestion& _question, StepList& _steps) {
  const ConfigurationFile& init = _question.seen->configuration.init;
  if (!init.isUsable()) {
    const Finding* const fault =
        init.exists() || init.facts.kind != toolsystem::PathKind::missing || init.facts.isHidden
            ? faultOfListFile(_question)
            : nullptr;
    const std::string what = fault != nullptr ? ": " + fault->text : init.exists() ? " cannot be read" : " is missing";
    _steps.ok("class list", nativePath(init.path) + what + ": classes stay as they are, at a start all of them on");
    return;
  }
  std::string list = init.text;
  std::erase(list, '\n');
  const Selection selection = list.empty() ? Selection() : selectionOf(patternsOf(list), _question.logClass);
  if (selection.isSelected) {
    _steps.ok("class list", "\"" + selection.entry + "\" in " + nativePath(init.path));
    return;
  }
  if (const Finding* const fault = faultOfList(_question)) {
    _steps.failBy("class list", *fault);
    return;
  }
  const std::string text = "no entry selects " + _question.logClass + ", so it is off" + hint(selection);
  const std::string fix = selection.nearMiss.empty()
                              ? "qmrkctl " + _question.options + "classes enable \"" + _question.logClass + "\""
                              : fixOfNearMiss(selection.nearMiss, _question.logClass);
  _steps.fail("class list", findingOf("Q616", placeOfEntry(init, selection.nearMiss), text, fix));
}

// What the application has of the class itself counts more than how it came to it.
void addAppliedStep(const WhyQuestion& _question, const ProcessStatus& _status, StepList& _steps) {
  const auto& logs = _status.classes.logs;
  const auto log = std::ranges::find(logs, _question.logClass, &LogState::name);
  const Finding* const finding = findingAmong(_question, {"Q603", "Q611"});
  if (finding != nullptr && (log == logs.end() || !log->isOn)) {
    _steps.fail("applied list", *finding);
  } else if (finding != nullptr) {
    _steps.ok("applied list", finding->text);
  } else if (_status.classes.generation == 0) {
    _steps.unknown("applied list", "the application has applied none");
  } else {
    _steps.ok("applied list", "that of the file");
  }
  if (log == logs.end()) {
    _steps.unknown("log", "the application has no log of this name yet");
  } else if (log->isOn) {
    _steps.ok("log", "on");
  } else {
    _steps.fail("log",
                findingOf("Q616", {}, "the application has a log of this name, and it is off", "qmrkctl signal"));
  }
}

}  // namespace

std::vector<WhyStep> classSteps(const WhyQuestion& _question) {
  StepList steps;
  if (!addFilterOfSetUp(_question, steps)) addFilterStep(_question, steps);
  if (steps.isOpen()) addListStep(_question, steps);
  const ProcessStatus* const status = statusOf(_question);
  if (steps.isOpen() && status != nullptr) addAppliedStep(_question, *status, steps);
  return steps.take();
}

}  // namespace qmrkctl
