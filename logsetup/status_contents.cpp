// SPDX-License-Identifier: MIT
#include "logsetup/status_contents.h"

#include <algorithm>
#include <atomic>
#include <boost/logging/logging.hpp>
#include <cctype>
#include <cstdlib>
#include <utility>

#include "diagnostics/status_page.h"
#include "logsetup/file_status.h"
#include "platform/clock.h"
#include "quillmark_logging_names.h"
#include "trace/trace_flags.h"

namespace Quillmark_logging {
namespace {

using status::StatusImage;
using Notes = SetupStatus::Notes;

constexpr std::size_t mostApplications = 100;

struct Application {
  std::string name;
  bool isUnregistered;
};

// What the page tells of former calls. Under the lock of the page; never destroyed.
struct FormerCalls {
  std::vector<Application> applications;
  std::uint32_t applicationsLeftOut = 0;
  std::uint64_t classGeneration = 0;
  bool hasConfiguration = false;
};

FormerCalls& formerCalls() {
  static FormerCalls& calls = *new FormerCalls;
  return calls;
}

struct Log {
  std::string name;
  bool isOn;
};

std::vector<Log> currentLogs() {
  std::vector<Log> logs;
  const auto add = [&logs](const std::string& _name, bool _isOn) { logs.push_back({_name, _isOn}); };
  boost::logging::list_logs(boost::logging::get_default_log_manager(), add);
  return logs;
}

bool isSameCa(const std::string& _left, const std::string& _right) {
  const auto isSame = [](unsigned char _a, unsigned char _b) { return std::toupper(_a) == std::toupper(_b); };
  return std::equal(_left.begin(), _left.end(), _right.begin(), _right.end(), isSame);
}

std::uint64_t momentNow() { return static_cast<std::uint64_t>(platform::wallClockNanoseconds()); }

template <class Enumeration>
void putOneOf(StatusImage& _image, const status::Field& _field, Enumeration _value) {
  _image.number(_field, static_cast<std::uint32_t>(_value));
}

void noteName(const std::string& _name, bool _isUnregistered) {
  FormerCalls& former = formerCalls();
  std::vector<Application>& all = former.applications;
  const auto place = std::find_if(all.begin(), all.end(), [&](const Application& _one) { return _one.name == _name; });
  if (place != all.end()) {
    place->isUnregistered = _isUnregistered;
  } else if (!_isUnregistered && all.size() < mostApplications) {
    all.push_back({_name, false});
  } else if (!_isUnregistered) {
    ++former.applicationsLeftOut;
  }
}

void putApplications(const Notes& _notes, StatusImage& _image) {
  if (_notes.application) noteName(*_notes.application, false);
  if (_notes.unregistered) noteName(*_notes.unregistered, true);
  if (!_notes.application && !_notes.unregistered) return;
  std::vector<status::Entry> entries;
  for (const Application& application : formerCalls().applications) {
    entries.push_back({application.name, application.isUnregistered ? status::isUnregistered : std::uint8_t{0}});
  }
  _image.list(status::applications, entries, formerCalls().applicationsLeftOut);
}

// Of the default logs; of an application's log only as long as there are none.
void putConfiguration(const Notes& _notes, const FoundConfiguration& _found, StatusImage& _image) {
  const bool isDefault = _notes.call == status::Call::initDefaultLogs;
  if (!_notes.asked || (!isDefault && formerCalls().hasConfiguration)) return;
  formerCalls().hasConfiguration = formerCalls().hasConfiguration || isDefault;
  putOneOf(_image, status::caSource,
           _notes.source == status::CaSource::unknown ? status::CaSource::given : _notes.source);
  _image.text(status::caAsked, *_notes.asked);
  const std::string ca = caOfPath(_notes.cfgPath);
  std::uint32_t changes = _found.isGenerated() ? status::generated : 0;
  if (!_notes.checkedCa.empty() && !isSameCa(_notes.checkedCa, *_notes.asked)) changes |= status::fallenBack;
  if (isSameCa(_notes.checkedCa, GENERIC_CA) && !ca.empty() && !isSameCa(ca, GENERIC_CA)) changes |= status::redirected;
  _image.number(status::caChanges, changes);
  _image.text(status::caInEffect, ca);
  _image.text(status::cfgPath, _notes.cfgPath.empty() ? _found.checkedPath() : _notes.cfgPath);
}

void putOutcome(const Notes& _notes, StatusImage& _image) {
  if (_notes.outcome.result == status::Result::none) return;
  putOneOf(_image, status::setUpCall, _notes.call);
  _image.number(status::setUpAt, momentNow());
  putOneOf(_image, status::setUpResult, _notes.outcome.result);
  putOneOf(_image, status::setUpFailure, _notes.outcome.failure);
  _image.text(status::setUpError, _notes.outcome.error);
  if (_notes.commonLog) _image.text(status::commonLogPath, *_notes.commonLog);
  if (_notes.filter) _image.text(status::filter, _notes.filter->beginning, _notes.filter->wholeSize);
}

void putUpdate(const Notes& _notes, const FoundConfiguration& _found, StatusImage& _image) {
  if (_notes.update.result == status::Result::none) return;
  _image.number(status::updateAt, momentNow());
  putOneOf(_image, status::updateResult, _notes.update.result);
  putOneOf(_image, status::updateFailure, _notes.update.failure);
  _image.text(status::updateError, _notes.update.error);
  _image.text(status::initPath, _found.initPath());
  if (!_notes.classes) return;
  _image.number(status::classGeneration, ++formerCalls().classGeneration);
  _image.number(status::classesAt, momentNow());
  _image.number(status::classHash, _notes.classes->hash);
  _image.text(status::classText, _notes.classes->beginning, _notes.classes->wholeSize);
  _image.text(status::classCa, caOfPath(_found.initPath()));
  _image.number(status::ownChange, 0);
  _image.number(status::ownChangeAt, 0);
  _image.text(status::ownPattern, "");
}

void putOwnChange(const Notes& _notes, StatusImage& _image) {
  if (_notes.call < status::Call::enableAllLogs) return;
  putOneOf(_image, status::ownChange, _notes.call);
  _image.number(status::ownChangeAt, momentNow());
  _image.text(status::ownPattern, _notes.pattern);
}

void putLogs(const std::vector<Log>& _logs, StatusImage& _image) {
  std::vector<status::Entry> entries;
  entries.reserve(_logs.size());
  for (const Log& log : _logs)
    entries.push_back({log.name, log.isOn ? status::isOn : std::uint8_t{0}});
  _image.list(status::logs, entries);
}

// The log manager may stay when this library is unloaded.
void observeFiles() {
  static constinit std::atomic<bool> isObserving{false};
  if (isObserving.exchange(true)) return;
  boost::logging::observe_files(&showFiles);
  std::atexit([] { boost::logging::observe_files(nullptr); });
}

}  // namespace

void showSetUp(const Notes& _notes, const FoundConfiguration& _found) noexcept {
  try {
    observeFiles();
    addFiles(_notes.files);
    const std::vector<status::FileValues> files = currentFiles();
    const std::vector<Log> logs = currentLogs();
    status::changePageBy([&](StatusImage& _image) {
      _image.number(status::modes, (tsMode() ? status::threadSafeMode : 0) | (loadTimeTrace() ? status::traceMode : 0));
      putApplications(_notes, _image);
      putConfiguration(_notes, _found, _image);
      putOutcome(_notes, _image);
      putUpdate(_notes, _found, _image);
      putOwnChange(_notes, _image);
      putLogs(logs, _image);
      _image.putFiles(files);
    });
  } catch (...) {
    // No memory.
  }
  showMissedFiles();
}

}  // namespace Quillmark_logging
