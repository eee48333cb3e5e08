// SPDX-License-Identifier: MIT
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/native_path.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/qmrkctl/table_text.h"
#include "tools/system/end_request.h"
#include "tools/system/terminal.h"

namespace qmrkctl {
namespace {

constexpr const char* homeAndClear = "\x1b[H\x1b[J";

std::string listensText(const RunningProcess& _process) {
  if (_process.facts.activity == toolsystem::Activity::stopped) return "stopped";
  if (!_process.status) return _process.facts.events.empty() ? "?" : "yes";
  switch (_process.status->listener.state) {
    case status::ListenerState::waiting:
      return "yes";
    case status::ListenerState::updating:
      return "updating";
    case status::ListenerState::failed:
      return "failed";
    case status::ListenerState::none:
    case status::ListenerState::ended:
      break;
  }
  return "no";
}

std::string appliedText(const RunningProcess& _process) {
  if (!_process.status || _process.status->classes.generation == 0) return "-";
  if (_process.status->classes.ownChange != status::Call::none) return "own";
  const auto hash = hashOfList(_process);
  if (!hash) return "?";
  return *hash == _process.status->classes.hash ? "yes" : "no";
}

std::uint64_t lostBy(const RunningProcess& _process) {
  std::uint64_t lost = 0;
  if (!_process.status) return lost;
  for (const LogFileStatus& file : _process.status->files)
    lost += file.lost + file.dropped;
  return lost;
}

std::vector<std::string> filesOf(const RunningProcess& _process) {
  std::vector<std::string> files;
  if (!_process.status) return files;
  for (const LogFileStatus& file : _process.status->files)
    files.push_back(platform::nativePath(file.path.bytes));
  return files;
}

std::vector<std::string> rowOf(const RunningProcess& _process) {
  std::string files;
  for (const std::string& file : filesOf(_process))
    files += (files.empty() ? "" : ", ") + shown(file);
  const bool isKnown = _process.status.has_value();
  return {std::to_string(_process.pid()),
          shown(_process.facts.user),
          shown(_process.application),
          isKnown && !_process.status->caInEffect.empty() ? shown(_process.status->caInEffect) : "?",
          listensText(_process),
          appliedText(_process),
          isKnown ? std::to_string(lostBy(_process)) : "?",
          files.empty() ? "-" : files};
}

Json jsonOf(const RunningProcess& _process) {
  Json object = {{"pid", _process.pid()},
                 {"user", _process.facts.user},
                 {"application", _process.application},
                 {"executable", _process.facts.executable},
                 {"listens", listensText(_process)},
                 {"applied", appliedText(_process)},
                 {"lost", lostBy(_process)},
                 {"files", filesOf(_process)},
                 {"hasPage", _process.status.has_value()},
                 {"isApart", !_process.facts.root.empty()}};
  if (_process.status) object["ca"] = _process.status->caInEffect;
  return object;
}

std::string othersText(std::size_t _number) {
  return std::to_string(_number) + " more of other users; sudo qmrkctl apps --all-users shows them";
}

std::vector<std::string> linesOf(const RunningProcesses& _processes, const std::string& _ca) {
  std::vector<std::vector<std::string>> rows = {{"PID", "USER", "APP", "CA", "LISTENS", "APPLIED", "LOST", "FILES"}};
  for (const RunningProcess& process : _processes.found)
    rows.push_back(rowOf(process));
  std::vector<std::string> lines = tableLines(rows);
  if (_processes.found.empty())
    lines = {_ca.empty() ? "no running process has the library loaded" : "no running process uses " + shown(_ca)};
  if (_processes.ofOthers > 0) lines.push_back(othersText(_processes.ofOthers));
  return lines;
}

void keepResult(const RunningProcesses& _processes, Report& _report) {
  Json apps = Json::array();
  for (const RunningProcess& process : _processes.found)
    apps.push_back(jsonOf(process));
  _report.result() = {{"apps", apps}, {"ofOthers", _processes.ofOthers}};
}

RunningProcesses askedProcesses(const Options& _options) {
  RunningProcesses processes = runningProcesses(steeredProcesses(_options));
  keepThoseOf(_options.ca, processes.found);
  return processes;
}

int showOnce(const Options& _options, Report& _report) {
  const RunningProcesses processes = askedProcesses(_options);
  keepResult(processes, _report);
  for (const std::string& line : linesOf(processes, _options.ca))
    _report.line(line);
  const bool isChosen = _options.pid || !_options.app.empty() || !_options.ca.empty();
  return processes.found.empty() && isChosen ? exitNotFound : exitOk;
}

// A terminal shows the latest state; what is no terminal gets a new table whenever something has changed.
int watch(std::chrono::milliseconds _interval, const Options& _options, Report& _report) {
  toolsystem::catchEndRequests();
  const bool isTerminal = toolsystem::isTerminal(toolsystem::Stream::output);
  std::vector<std::string> former;
  do {
    const RunningProcesses processes = askedProcesses(_options);
    keepResult(processes, _report);
    const std::vector<std::string> lines = linesOf(processes, _options.ca);
    if (isTerminal && !_options.json) _report.bytes(homeAndClear);
    for (const std::string& line : lines) {
      if (isTerminal || lines != former) _report.line(line);
    }
    former = lines;
  } while (_report.isWritable() && toolsystem::sleepUnlessEnded(_interval));
  return exitInterrupted;
}

}  // namespace

void addAppsCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command = _program.add_subcommand("apps", "Running applications and what became of their logging");
  const auto isWatched = std::make_shared<bool>(false);
  command->add_flag("--watch", *isWatched, "Go on until Ctrl-C");
  command->footer(
      "LISTENS: waits for \"qmrkctl signal\". APPLIED: its classes are those of the file now; own: it switched some\n"
      "itself. LOST: messages that could not be written.\n"
      "Example: sudo qmrkctl apps --all-users --watch");
  command->callback([isWatched, &_choice] {
    _choice = {"apps", [isWatched](const Options& _options, Report& _report) {
                 if (refusesUser(_options)) return static_cast<int>(exitNotFound);
                 if (*isWatched) return watch(std::chrono::seconds(1), _options, _report);
                 return showOnce(_options, _report);
               }};
  });
}

}  // namespace qmrkctl
