// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/lease_sweep.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/history.h"
#include "tools/qmrkctl/steering.h"

namespace qmrkctl {
namespace {

constexpr std::chrono::milliseconds sweepLockWait(500);

// Whether a lease is over, or somebody else has taken one of its classes off the list.
bool isAnythingToDo(const ClassListState& _state) {
  return !_state.leases.empty() &&
         leasesText(sweep(_state.list, _state.leases, clocksNow()).leases) != leasesText(_state.leases);
}

std::vector<Addressee> followersOf(const ClassListPlace& _place, const std::string& _list) {
  std::vector<Addressee> followers;
  ProcessConfigurations configurations;
  for (const RunningProcess& process : runningProcesses(steeredProcesses(Options())).found) {
    if (follows(process, _place, configurations)) followers.push_back({process, classListHash(_list)});
  }
  return followers;
}

Acknowledgement letKnow(const std::vector<Addressee>& _followers, std::chrono::milliseconds _wait) {
  std::vector<RunningProcess> processes;
  processes.reserve(_followers.size());
  for (const Addressee& each : _followers)
    processes.push_back(each.process);
  return signalAndAwait(placesOf(ProcessQuery(), processes), Quillmark_logging::QMRK_LOG_EVENT, _followers, _wait);
}

}  // namespace

std::vector<ClassListPlace> listsWithLeases(const Viewpoint& _viewpoint) {
  std::vector<ClassListPlace> places;
  const Configuration configuration = readConfiguration(_viewpoint, "");
  const std::string folder = reachedPath(_viewpoint, configuration.initFolder);
  std::error_code error;
  std::vector<std::string> names;
  for (std::filesystem::directory_iterator entry(platform::nativePath(folder), error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == ".lease") names.push_back(entry->path().stem().string());
  }
  std::sort(names.begin(), names.end());
  const std::string beginning = folder + "\\qmrk_logging_";
  for (const std::string& ca : names) {
    const std::string path = beginning + ca;
    if (auto place = classListPlaceOf(path + ".init")) places.push_back(*place);
  }
  return places;
}

std::optional<SweptList> sweepList(const ClassListPlace& _place, std::chrono::milliseconds _wait) {
  // Most calls find nothing to do, and then take no lock.
  std::optional<ClassListState> before = readClassList(_place);
  if (!before || !isAnythingToDo(*before)) return std::nullopt;
  SweptList result{_place, {}, {}, {}};
  const toolsystem::FileLock lock(_place.lock, sweepLockWait);
  if (!lock.isHeld()) {
    result.failure = lock.failure();
    return result.failure ? std::optional<SweptList>(result) : std::nullopt;
  }
  before = readClassList(_place);
  if (!before) return std::nullopt;
  const Swept swept = sweep(before->list, before->leases, clocksNow());
  const std::vector<Addressee> followers = followersOf(_place, swept.list);
  result.ended = swept.ended;
  const ClassListState after{before->exists, swept.list, swept.leases};
  // The list first: a lease that is forgotten too early would leave its classes on.
  result.failure = writeSweptList(_place, *before, after);
  if (result.failure) return result;
  if (!swept.ended.empty()) result.acknowledgement = letKnow(followers, _wait);
  if (swept.ended.empty()) return result;
  const bool isInPassing = _wait.count() == 0;
  const std::string reason = isInPassing ? "its time is over; nobody waited for answers" : "its time is over";
  const ChangeRecord record{_place.ca, "sweep", before->list, swept.list, reason, ""};
  // What nobody waited for says nothing.
  const std::vector<Answer> answers = isInPassing ? std::vector<Answer>() : result.acknowledgement.answers;
  result.failure = appendToHistory(_place.history, record, answers);
  return result;
}

void sweepInPassing() {
  try {
    for (const ClassListPlace& place : listsWithLeases(ownViewpoint()))
      sweepList(place, std::chrono::milliseconds(0));
  } catch (const std::exception&) {
    // The command itself is not concerned.
    return;
  }
}

}  // namespace qmrkctl
