// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/asked_viewpoint.h"

#include <string>

#include "tools/qmrkctl/command_report.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/running_processes.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

std::optional<Viewpoint> refused(const std::string& _message, int _code, int& _exitCode) {
  Report::message(_message);
  _exitCode = _code;
  return std::nullopt;
}

std::optional<Viewpoint> ofProcess(int _pid, int& _exitCode) {
  std::optional<Viewpoint> viewpoint = viewpointOfProcess(_pid);
  if (!viewpoint) return refused("there is no process " + std::to_string(_pid), exitNotFound, _exitCode);
  if (!isHiddenProcess(_pid)) return viewpoint;
  _exitCode = refuseHiddenProcess(_pid);
  return std::nullopt;
}

}  // namespace

bool isHiddenProcess(int _pid) { return viewpointOfProcess(_pid) && !toolsystem::environmentOfProcess(_pid); }

int refuseHiddenProcess(int _pid) {
  const std::string pid = std::to_string(_pid);
  Report::message("the environment of process " + pid + " cannot be read; root may: sudo qmrkctl --pid " + pid +
                  " ...");
  return exitNoPermission;
}

std::optional<Viewpoint> askedViewpoint(const Options& _options, int& _exitCode) {
  if (_options.pid) return ofProcess(*_options.pid, _exitCode);
  if (!_options.app.empty()) {
    const RunningProcesses processes = runningProcesses(queryOf(_options));
    if (processes.found.empty()) {
      return refused("no running application is called \"" + shown(_options.app) + "\"", exitNotFound, _exitCode);
    }
    return ofProcess(static_cast<int>(processes.found.front().pid()), _exitCode);
  }
  if (_options.user.empty()) return ownViewpoint();
  std::optional<Viewpoint> viewpoint = viewpointOfUser(_options.user);
  if (!viewpoint) return refused("there is no user \"" + shown(_options.user) + "\"", exitNotFound, _exitCode);
  return viewpoint;
}

}  // namespace qmrkctl
