// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_change.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/actor.h"
#include "tools/qmrkctl/answer_report.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/ca_choice.h"
#include "tools/qmrkctl/change_kind.h"
#include "tools/qmrkctl/class_cover.h"
#include "tools/qmrkctl/class_list_text.h"
#include "tools/qmrkctl/duration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/file_refusal.h"
#include "tools/qmrkctl/history.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/qmrkctl/utc_time.h"
#include "tools/system/end_request.h"

namespace qmrkctl {
namespace {

using Names = std::vector<std::string>;

constexpr std::chrono::milliseconds longestLockWait(5000);

std::string changedList(const std::string& _list, const ChangeRequest& _request) {
  switch (_request.kind) {
    case ChangeKind::enable:
      return withClasses(_list, _request.names);
    case ChangeKind::disable:
      return withoutClasses(_list, _request.names);
    case ChangeKind::only:
      return classListOf(_request.names);
    case ChangeKind::set:
      return _request.list;
    case ChangeKind::clear:
      break;
  }
  return std::string(emptyClassList);
}

Names namesMeant(const ChangeRequest& _request) {
  return _request.kind == ChangeKind::set ? classesIn(_request.list) : _request.names;
}

// "+A -B", or "no change".
std::string differenceText(const Names& _added, const Names& _removed) {
  std::string text;
  for (const std::string& name : _added)
    text += " +" + shown(name);
  for (const std::string& name : _removed)
    text += " -" + shown(name);
  return text.empty() ? " no change" : text;
}

// One change, from the lock to the answers.
class Change {
 public:
  Change(const ChangeRequest& _request, const Options& _options, Report& _report)
      : request_(_request), options_(_options), report_(_report) {}

  int run() {
    int refusal = exitOk;
    const auto viewpoint = askedViewpoint(options_, refusal);
    if (!viewpoint) return refusal;
    const Configuration configuration = readConfiguration(*viewpoint, options_.ca);
    if (isNamedCaMissing(configuration)) return refuseOtherCa(configuration);
    const auto place = classListPlace(*viewpoint, configuration);
    if (!place) {
      Report::message("the CA " + shown(configuration.caInEffect) +
                      " has no class list of its own: let qmrk_logging_GE.cfg name one by REDIRECT_CA_NR");
      return exitNotFound;
    }
    place_ = *place;
    toolsystem::catchEndRequests();
    const toolsystem::FileLock lock(place_.lock, request_.isDryRun ? std::chrono::milliseconds(0) : longestLockWait);
    // Who may only look at the list may still ask what would change.
    if (!lock.isHeld() && !request_.isDryRun) return tellNoLock(lock);
    return changeLocked(*viewpoint, configuration);
  }

 private:
  // A slip in the name must not change the list of another CA.
  static int refuseOtherCa(const Configuration& _configuration) {
    Report::message("the CA " + shown(_configuration.caAsked) + " has no .cfg file; applications that ask for it use " +
                    "the class list of " + shown(_configuration.caOfFiles) + ": change it by that name");
    return exitNotFound;
  }

  int tellNoLock(const toolsystem::FileLock& _lock) const {
    if (_lock.failure()) return refuseFile(*_lock.failure(), place_.lock);
    if (toolsystem::isEndRequested()) return exitInterrupted;
    Report::message("somebody else is changing the class list, and has been for 5 s");
    return exitTimeout;
  }

  int changeLocked(const Viewpoint& _viewpoint, const Configuration& _configuration) {
    auto state = readClassList(place_);
    if (!state) return refuseUnread(place_.reached, "qmrkctl classes " + std::string(changeName(request_.kind)));
    before_ = *state;
    if (!before_.exists && request_.kind == ChangeKind::disable) return refuseMissing();
    now_ = clocksNow();
    Swept swept = sweep(before_.list, before_.leases, now_);
    after_ = changed({before_.exists, swept.list, swept.leases}, request_, now_);
    if (const int code = lint(_viewpoint, _configuration); code != exitOk) return code;
    if (request_.isDryRun) return tellChange();
    const RunningProcesses processes =
        request_.isSilent ? RunningProcesses() : runningProcesses(steeredProcesses(options_));
    std::vector<Addressee> addressees = addresseesOf(processes.found);
    if (const auto failure = writeClassList(place_, before_, after_)) return refuseFile(*failure, place_.reached);
    const int told = tellChange();
    const int code = awaitAnswers(addressees);
    return code == exitOk ? told : code;
  }

  int refuseMissing() const {
    Report::message("there is no class list " + shown(place_.reached) +
                    ", so every class is on; \"classes only\" says which stay on");
    return exitNotFound;
  }

  // What is wrong with the new list. That an empty one is empty has been asked for.
  int lint(const Viewpoint& _viewpoint, Configuration _configuration) {
    if (request_.kind == ChangeKind::clear) return exitOk;
    // As it will be: it may not be there yet.
    _configuration.init.facts.kind = toolsystem::PathKind::file;
    _configuration.init.rights = {true, true, true};
    _configuration.init.isRead = true;
    _configuration.init.bytes = after_.list;
    _configuration.init.text = withoutCarriageReturns(after_.list);
    bool isRefused = false;
    for (const Finding& finding : checkConfiguration(_viewpoint, _configuration)) {
      if (finding.file != platform::nativePath(_configuration.init.path) || finding.severity == Severity::note)
        continue;
      report_.add(finding);
      isRefused = isRefused || finding.severity == Severity::error;
    }
    if (!isRefused || request_.isForced) return exitOk;
    Report::message("the list is left as it is; --force writes it all the same");
    return exitNegative;
  }

  int tellChange() {
    tellDifference();
    return request_.kind == ChangeKind::disable ? tellLeftOn() : exitOk;
  }

  void tellDifference() {
    const Names before = classesIn(before_.list);
    const Names after = classesIn(after_.list);
    const Names added = classesMissingIn(after, before);
    const Names removed = classesMissingIn(before, after);
    const std::string file = platform::nativePath(place_.path);
    if (!before_.exists && request_.kind == ChangeKind::enable) {
      Report::message("there was no class list, so every class was on; now only those of the list are");
    }
    report_.line(shown(place_.ca) + " " + shown(file) + (request_.isDryRun ? " would change:" : ":") +
                 differenceText(added, removed));
    report_.result() = {{"ca", place_.ca},    {"file", file},     {"added", added},
                        {"removed", removed}, {"classes", after}, {"dryRun", request_.isDryRun}};
    if (request_.duration) tellEnd();
  }

  // That which is not as asked after classes were switched off.
  int tellLeftOn() const {
    int code = exitOk;
    const Names missing = classesMissingIn(request_.names, classesIn(before_.list));
    for (const std::string& name : classesMissingIn(request_.names, {})) {
      const std::string cover = coverText(name, classesIn(after_.list));
      if (!cover.empty()) {
        Report::message(cover);
        code = exitNegative;
      } else if (std::find(missing.begin(), missing.end(), name) != missing.end()) {
        Report::message(shown(name) + " is not in the class list");
      }
    }
    return code;
  }

  void tellEnd() {
    const std::map<std::string, std::int64_t> ends = endsOf(after_.leases);
    const Names meant = classesMissingIn(namesMeant(request_), {});
    if (std::none_of(meant.begin(), meant.end(), [&ends](const auto& _name) { return ends.contains(_name); })) {
      report_.line("nothing goes off again: it was on before");
      return;
    }
    const std::string lead = "what it switches on goes off again after " + durationText(*request_.duration);
    if (request_.leaseReserve.count() > 0) {
      // They begin with the answers of the applications.
      report_.line(lead + " of measuring");
      return;
    }
    const std::int64_t end = now_.wall + request_.duration->count();
    report_.line(lead + ", at " + utcText(end));
    report_.result()["until"] = utcText(end);
    for (const std::string& name : meant) {
      const auto found = ends.find(name);
      if (found == ends.end()) continue;
      const std::string cover = coverText(name, entriesAfter(end, classesIn(after_.list), ends));
      if (found->second > end) {
        report_.line("but " + shown(name) + " at " + utcText(found->second) + ": a former lease lasts longer");
      } else if (!cover.empty()) {
        report_.line("but " + cover);
      }
    }
  }

  std::vector<Addressee> addresseesOf(const std::vector<RunningProcess>& _processes) {
    std::vector<Addressee> addressees;
    ProcessConfigurations configurations;
    for (const RunningProcess& process : _processes) {
      if (process.status && !follows(process, place_, configurations)) {
        report_.detail(std::to_string(process.pid()) + " " + shown(process.application) + " " +
                       shown(process.facts.user) +
                       " follows another class list: " + shown(process.status->initPath.text));
      } else {
        addressees.push_back({process, classListHash(after_.list)});
      }
    }
    return addressees;
  }

  int awaitAnswers(const std::vector<Addressee>& _addressees) {
    Acknowledgement result;
    if (!request_.isSilent) {
      std::vector<RunningProcess> processes;
      processes.reserve(_addressees.size());
      for (const Addressee& each : _addressees)
        processes.push_back(each.process);
      result = signalAndAwait(placesOf(steeredProcesses(options_), processes), Quillmark_logging::QMRK_LOG_EVENT,
                              _addressees, request_.wait);
    }
    // Only where somebody listens, or where the event cannot be set, is a place worth a line.
    std::erase_if(result.places, [](const PlaceResult& _place) { return _place.error == platform::errorFileNotFound; });
    reportAcknowledgement(result, report_);
    if (result.answers.empty() && !request_.isSilent) report_.line("no running application follows this list");
    record(result.answers);
    return exitCodeOf(result, true);
  }

  void record(const std::vector<Answer>& _answers) const {
    ChangeRecord record{place_.ca,       std::string(changeName(request_.kind)),
                        before_.list,    after_.list,
                        request_.reason, request_.duration ? durationText(*request_.duration) : ""};
    if (const auto failure = appendToHistory(place_.history, record, _answers)) {
      Report::message("the history was not written: " + shown(failure->text));
    }
  }

  const ChangeRequest& request_;
  const Options& options_;
  Report& report_;
  ClassListPlace place_;
  ClassListState before_;
  ClassListState after_;
  Clocks now_;
};

}  // namespace

ClassListState changed(const ClassListState& _state, const ChangeRequest& _request, const Clocks& _now) {
  ClassListState after = _state;
  after.list = changedList(_state.list, _request);
  const Names meant = namesMeant(_request);
  const Names former = classesIn(_state.list);
  const Names current = classesIn(after.list);
  Names leased = classesMissingIn(current, former);
  for (const Lease& lease : _state.leases) {
    for (const std::string& name : lease.classes) {
      const bool isMeant = std::find(meant.begin(), meant.end(), name) != meant.end();
      if (isMeant) leased.push_back(name);
    }
  }
  // What is switched now by name is no longer the former leases' business, nor is what has gone.
  after.leases = withoutLeased(after.leases, classesMissingIn(former, current));
  if (!_request.duration) after.leases = withoutLeased(after.leases, meant);
  leased = classesMissingIn(leased, {});
  if (_request.duration && !leased.empty()) {
    Lease lease = leaseOf(leased, *_request.duration + _request.leaseReserve, _now);
    lease.who = actorText();
    lease.reason = _request.reason;
    after.leases.push_back(std::move(lease));
  }
  return after;
}

int changeClasses(const ChangeRequest& _request, const Options& _options, Report& _report) {
  return Change(_request, _options, _report).run();
}

}  // namespace qmrkctl
