// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_trial.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <set>

#include "platform/native_path.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/change_kind.h"
#include "tools/qmrkctl/class_entries.h"
#include "tools/qmrkctl/class_list_text.h"
#include "tools/qmrkctl/duration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/logged_lines.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/system/end_request.h"

namespace qmrkctl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds betweenMeasurements(200);
// The lease outlives the trial, which takes the classes off itself.
constexpr std::chrono::milliseconds leaseReserve(10'000);

struct Measured {
  std::int64_t lines = 0;
  std::int64_t bytes = 0;
  double seconds = 0;
};

// The logs that the classes may reach, as this program reaches them.
std::set<std::string> logsOf(const Viewpoint& _viewpoint, const Configuration& _configuration,
                             const ClassListPlace& _place, const Options& _options) {
  std::set<std::string> logs;
  if (_configuration.logs && !_configuration.logs->commonLog.empty()) {
    logs.insert(reachedPath(_viewpoint, _configuration.logs->commonLog));
  }
  ProcessConfigurations configurations;
  for (const RunningProcess& process : runningProcesses(steeredProcesses(_options)).found) {
    if (!follows(process, _place, configurations)) continue;
    for (const LogFileStatus& file : process.status->files) {
      if (!file.path.isCut && !file.path.bytes.empty()) logs.insert(reachedPathOf(process, file.path.bytes));
    }
  }
  return logs;
}

void add(const LineCount& _count, const std::vector<std::string>& _names, Measured& _measured) {
  for (const auto& [name, lines] : _count.byClass) {
    const bool isMeant = std::any_of(_names.begin(), _names.end(),
                                     [name = name](const std::string& _name) { return selects(_name, name); });
    if (!isMeant) continue;
    _measured.lines += lines;
    _measured.bytes += _count.bytesBy.at(name);
  }
}

Measured measure(std::deque<LoggedLines>& _logs, const ChangeRequest& _request) {
  Measured measured;
  const Clock::time_point begin = Clock::now();
  const Clock::time_point end = begin + *_request.duration;
  bool goesOn = true;
  while (goesOn && Clock::now() < end) {
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - Clock::now());
    goesOn = toolsystem::sleepUnlessEnded(std::min<std::chrono::microseconds>(left, betweenMeasurements));
    for (LoggedLines& log : _logs)
      add(log.newLines(), _request.names, measured);
  }
  measured.seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  return measured;
}

std::string numberText(double _number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f", _number);
  return text.data();
}

// When a disk would be full; empty: nothing is logged, or the space is not known.
std::string fullText(const Measured& _measured, std::optional<std::uint64_t> _free) {
  if (!_free || _measured.bytes == 0 || _measured.seconds <= 0) return "";
  const double seconds = static_cast<double>(*_free) * _measured.seconds / static_cast<double>(_measured.bytes);
  constexpr double longest = 10.0 * 365 * 86'400;
  if (seconds > longest) return "more than 10 years";
  if (seconds > 2 * 86'400) return numberText(seconds / 86'400) + " days";
  return seconds > 2 * 3600 ? numberText(seconds / 3600) + " hours" : numberText(seconds / 60) + " minutes";
}

void tell(const Measured& _measured, std::optional<std::uint64_t> _free, Report& _report) {
  const double seconds = std::max(_measured.seconds, 0.001);
  const double lineRate = static_cast<double>(_measured.lines) / seconds;
  const double byteRate = static_cast<double>(_measured.bytes) / seconds;
  _report.line("measured for " + numberText(seconds) + " s: " + std::to_string(_measured.lines) + " lines, " +
               numberText(lineRate) + " lines/s, " + numberText(byteRate) + " bytes/s");
  const std::string full = fullText(_measured, _free);
  _report.line(full.empty() ? "the disk would not become full by that" : "at that rate the disk is full in " + full);
  Json trial = {{"seconds", seconds},
                {"lines", _measured.lines},
                {"bytes", _measured.bytes},
                {"linesPerSecond", lineRate},
                {"bytesPerSecond", byteRate}};
  if (_free) trial["freeBytes"] = *_free;
  if (!full.empty()) trial["fullIn"] = full;
  _report.result()["trial"] = trial;
}

}  // namespace

int tryClasses(const ChangeRequest& _request, const Options& _options, Report& _report) {
  int refusal = exitOk;
  const auto viewpoint = askedViewpoint(_options, refusal);
  if (!viewpoint) return refusal;
  const Configuration configuration = readConfiguration(*viewpoint, _options.ca);
  const auto place = classListPlace(*viewpoint, configuration);
  const auto before = place ? readClassList(*place) : std::nullopt;
  if (before && !before->exists) {
    Report::message("there is no class list " + shown(place->reached) +
                    ", so every class is on: nothing is to be tried");
    return exitNotFound;
  }
  std::deque<LoggedLines> logs;
  std::string anyLog;
  if (before) {
    for (const std::string& path : logsOf(*viewpoint, configuration, *place, _options)) {
      logs.emplace_back(path);
      anyLog = path;
    }
  }
  ChangeRequest on = _request;
  on.leaseReserve = leaseReserve;
  const int code = changeClasses(on, _options, _report);
  // Whatever the answers were, a list that was written is taken back.
  if (!before || !_report.result().contains("answers")) return code;
  const Measured measured = measure(logs, _request);
  const bool wasInterrupted = toolsystem::isEndRequested();
  toolsystem::forgetEndRequest();
  ChangeRequest off = _request;
  off.kind = ChangeKind::disable;
  off.duration.reset();
  off.names = classesMissingIn(_request.names, classesIn(before->list));
  const int codeOfEnd = off.names.empty() ? exitOk : changeClasses(off, _options, _report);
  const std::string folder = anyLog.substr(0, anyLog.find_last_of("\\/"));
  tell(measured, folder.empty() ? std::nullopt : toolsystem::freeBytes(platform::nativePath(folder)), _report);
  if (wasInterrupted) return exitInterrupted;
  return code != exitOk ? code : codeOfEnd;
}

}  // namespace qmrkctl
