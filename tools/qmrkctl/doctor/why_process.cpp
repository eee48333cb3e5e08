// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cctype>

#include "diagnostics/status_page_values.h"
#include "logmanager/names/name_pattern.h"
#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/logs/merged_logs.h"
#include "tools/qmrkctl/class_entries.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/doctor/why_chain.h"
#include "tools/qmrkctl/doctor/why_faults.h"

namespace qmrkctl {
namespace {

using platform::nativePath;

const ProcessStatus* statusOf(const WhyQuestion& _question) {
  return _question.process != nullptr && _question.process->status ? &*_question.process->status : nullptr;
}

void addCaStep(const WhyQuestion& _question, StepList& _steps) {
  const Configuration& configuration = _question.seen->configuration;
  std::string seen = configuration.caAsked + " asked for, files of " + configuration.caOfFiles;
  if (configuration.isFallenBack) seen += "; " + configuration.caAsked + " has no .cfg file: fallen back to GE";
  if (configuration.isRedirected) seen += "; GE redirects";
  const ProcessStatus* const status = statusOf(_question);
  if (status != nullptr && !status->cfgPath.text.empty() && status->cfgPath.text != configuration.cfg.path) {
    _steps.fail("CA", findingOf("Q613", {nativePath(status->cfgPath.text), 0, 0},
                                "the application was set up with this file; today it would be " +
                                    nativePath(configuration.cfg.path)));
  } else {
    _steps.ok("CA", seen);
  }
}

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
        init.exists() || init.facts.kind != toolsystem::PathKind::missing ? faultOfListFile(_question) : nullptr;
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
  const std::string fix = selection.nearMiss.empty() ? "qmrkctl classes enable \"" + _question.logClass + "\""
                                                     : fixOfNearMiss(selection.nearMiss, _question.logClass);
  _steps.fail("class list", findingOf("Q616", placeOfEntry(init, selection.nearMiss), text, fix));
}

const Finding* findingAmong(const WhyQuestion& _question, std::initializer_list<std::string_view> _codes) {
  const auto found = std::ranges::find_if(_question.findings, [_codes](const Finding& _finding) {
    return std::ranges::find(_codes, _finding.code) != _codes.end();
  });
  return found == _question.findings.end() ? nullptr : &*found;
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

void addListenerStep(const WhyQuestion& _question, const ProcessStatus& _status, StepList& _steps) {
  if (const Finding* const finding = findingAmong(_question, {"Q602", "Q604", "Q609"})) {
    _steps.fail("listener", *finding);
    return;
  }
  if (_status.listener.state == status::ListenerState::none) {
    _steps.ok("listener", "none: a changed class list counts at the next start");
  } else {
    _steps.ok("listener", "waits for " + _status.listener.event + ", follows " + _status.listener.ca);
  }
}

void addSpaceStep(const WhyQuestion& _question, StepList& _steps) {
  if (const Finding* const fault = faultOfSpace(_question)) {
    _steps.failBy("space", *fault);
    return;
  }
  const Viewpoint& viewpoint = _question.seen->viewpoint;
  const std::string folder = existingPart(viewpoint, _question.seen->configuration.logs->folder);
  if (const auto free = toolsystem::freeBytes(reachedPath(viewpoint, folder))) {
    _steps.ok("space", std::to_string(*free / 1024 / 1024) + " MiB free");
  } else {
    _steps.unknown("space", "the system does not tell");
  }
}

void addWritingStep(const WhyQuestion& _question, const ProcessStatus& _status, StepList& _steps) {
  if (const Finding* const finding = findingAmong(_question, {"Q605"})) {
    _steps.fail("writing", *finding);
    return;
  }
  std::uint64_t lost = 0;
  for (const LogFileStatus& file : _status.files)
    lost += file.lost + file.dropped;
  _steps.ok("writing", lost == 0 ? "no message was lost" : std::to_string(lost) + " messages were lost earlier");
}

void addLastLineStep(const WhyQuestion& _question, StepList& _steps) {
  constexpr std::int64_t farthest = std::int64_t{64} * 1024 * 1024;
  MessageQuery query;
  query.classes = {_question.logClass};
  query.farthest = farthest;
  MergedLogs logs({reachedPath(_question.seen->viewpoint, _question.seen->configuration.logs->commonLog)}, query);
  logs.begin(1);
  CivilTime last = 0;
  for (MergedLine line; logs.next(line) || logs.takeFragment(line, 0);)
    last = line.time;
  if (last == 0) {
    _steps.unknown("last line", "the last 64 MiB of the common log have none of this class");
  } else {
    _steps.ok("last line", civilText(last));
  }
}

}  // namespace

std::vector<WhyStep> setUpSteps(const WhyQuestion& _question) {
  StepList steps;
  if (_question.process == nullptr) {
    steps.unknown("application", "none is looked at: judged for one that starts now");
  } else if (!_question.process->facts.hasLibrary) {
    steps.fail("library", {"Q615", Severity::error, "", 0, 0, "the process does not have the library loaded",
                           "it does not log through it", "look at another process: qmrkctl apps"});
  } else {
    steps.ok("library", processText(*_question.process));
  }
  const ProcessStatus* const status = statusOf(_question);
  if (_question.process != nullptr && status == nullptr) {
    steps.unknown("set-up", "the application shows nothing of its logging");
  } else if (status != nullptr && status->setUp.result == status::Result::failed) {
    steps.fail("set-up", findingOf("Q607", {}, "the set-up failed: " + status->setUp.error.text));
  } else if (status != nullptr && status->setUp.result == status::Result::none) {
    steps.fail("set-up", findingOf("Q607", {}, "the application has set nothing up", "call initDefaultLogs"));
  } else if (status != nullptr) {
    steps.ok("set-up", "done");
  }
  if (steps.isOpen()) addCaStep(_question, steps);
  return steps.take();
}

std::vector<WhyStep> classSteps(const WhyQuestion& _question) {
  StepList steps;
  addFilterStep(_question, steps);
  if (steps.isOpen()) addListStep(_question, steps);
  const ProcessStatus* const status = statusOf(_question);
  if (steps.isOpen() && status != nullptr) addAppliedStep(_question, *status, steps);
  return steps.take();
}

std::vector<WhyStep> deliverySteps(const WhyQuestion& _question) {
  StepList steps;
  const ProcessStatus* const status = statusOf(_question);
  if (status != nullptr) addListenerStep(_question, *status, steps);
  if (steps.isOpen()) addSpaceStep(_question, steps);
  if (steps.isOpen() && status != nullptr) addWritingStep(_question, *status, steps);
  if (steps.isOpen()) addLastLineStep(_question, steps);
  return steps.take();
}

}  // namespace qmrkctl
