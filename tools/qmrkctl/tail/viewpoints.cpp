// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/tail/viewpoints.h"

#include "tools/qmrkctl/running_processes.h"
#include "tools/system/users.h"

namespace qmrkctl {
namespace {

ViewpointChoice choiceOf(const std::optional<Viewpoint>& _viewpoint, const std::string& _problem) {
  if (!_viewpoint) return {{}, _problem};
  return {{*_viewpoint}, ""};
}

ViewpointChoice allViewpoints() {
  ProcessQuery everybody;
  everybody.allUsers = true;
  ViewpointChoice choice{{ownViewpoint()}, ""};
  for (const RunningProcess& process : runningProcesses(everybody).found) {
    if (auto viewpoint = viewpointOfProcess(static_cast<int>(process.pid()))) choice.viewpoints.push_back(*viewpoint);
  }
  for (const std::string& user : toolsystem::usersOfMachine()) {
    if (auto viewpoint = viewpointOfUser(user)) choice.viewpoints.push_back(*viewpoint);
  }
  return choice;
}

}  // namespace

ViewpointChoice viewpointsOf(const Options& _options) {
  if (_options.pid) {
    return choiceOf(viewpointOfProcess(*_options.pid), "there is no process " + std::to_string(*_options.pid));
  }
  if (_options.allUsers) return allViewpoints();
  if (_options.user.empty()) return {{ownViewpoint()}, ""};
  return choiceOf(viewpointOfUser(_options.user), "there is no user \"" + _options.user + "\"");
}

}  // namespace qmrkctl
