// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/tail/log_choice.h"

#include <algorithm>
#include <set>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/logs/log_files.h"
#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/running_processes.h"
#include "tools/qmrkctl/steering.h"
#include "tools/qmrkctl/tail/viewpoints.h"

namespace qmrkctl {
namespace {

LogChoice withProblem(const std::string& _problem) { return {{}, _problem}; }

// The log of an application that has other names for itself and for its log, by what it shows of its files.
std::vector<std::string> logsOfRunning(const Options& _options, const std::string& _user) {
  ProcessQuery query = queryOf(_options);
  query.user = _user;
  std::vector<std::string> paths;
  for (const RunningProcess& process : runningProcesses(query).found) {
    if (!process.status) continue;
    for (const LogFileStatus& file : process.status->files) {
      if (file.kind != status::FileKind::common && !file.path.isCut)
        paths.push_back(reachedPathOf(process, file.path.bytes));
    }
  }
  std::ranges::sort(paths);
  paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
  return paths;
}

std::string namesText(const std::vector<std::string>& _names) {
  std::string text;
  for (const std::string& name : _names)
    text += (text.empty() ? "" : ", ") + name;
  return text;
}

LogChoice applicationLogs(const Options& _options, const Viewpoint& _viewpoint, const LogPlaces& _places) {
  const std::string folder = reachedPath(_viewpoint, _places.applicationFolder);
  const std::string path = reachedPath(
      _viewpoint, _places.applicationFolder + "\\" + _options.app + Quillmark_logging::APPL_SPEC_LOG_FILE_SUFFIX);
  LogChoice choice;
  if (!filesOfLog(path).empty()) {
    choice.logs.push_back({_viewpoint.account.name, path});
    return choice;
  }
  for (const std::string& running : logsOfRunning(_options, _viewpoint.account.name))
    choice.logs.push_back({_viewpoint.account.name, running});
  if (!choice.logs.empty()) return choice;
  // It may come yet.
  choice.logs.push_back({_viewpoint.account.name, path});
  const std::vector<std::string> names = applicationLogsIn(folder);
  choice.problem = "there is no log of an application \"" + _options.app + "\" in " + folder +
                   (names.empty() ? "" : "; there are those of " + namesText(names));
  return choice;
}

LogChoice logsOf(const Options& _options, const Viewpoint& _viewpoint, const std::string& _ca) {
  const Configuration configuration = readConfiguration(_viewpoint, _ca);
  if (!configuration.failure.empty()) return withProblem(configuration.failure);
  if (!configuration.logs) return withProblem("the system knows no folder for the logs of " + _viewpoint.account.name);
  if (!_options.app.empty()) return applicationLogs(_options, _viewpoint, *configuration.logs);
  if (configuration.logs->commonLog.empty()) {
    return withProblem("COMMON_LOG_FILE_NAME is missing in " + platform::nativePath(configuration.cfg.path));
  }
  return {{{_viewpoint.account.name, reachedPath(_viewpoint, configuration.logs->commonLog)}}, ""};
}

LogChoice logsOfProcess(const Options& _options) {
  const std::optional<Viewpoint> viewpoint = viewpointOfProcess(*_options.pid);
  if (!viewpoint) return withProblem("there is no process " + std::to_string(*_options.pid));
  std::string ca = _options.ca;
  for (const RunningProcess& process : runningProcesses(queryOf(_options)).found) {
    if (ca.empty() && process.status) ca = process.status->caAsked;
  }
  return logsOf(_options, *viewpoint, ca);
}

LogChoice logsOfAllUsers(const Options& _options) {
  LogChoice choice;
  std::set<std::string> paths;
  for (const Viewpoint& viewpoint : viewpointsOf(_options).viewpoints) {
    for (const ChosenLog& log : logsOf(_options, viewpoint, _options.ca).logs) {
      const bool exists =
          !filesOfLog(log.path).empty() || factsOf(Viewpoint(), log.path).kind == toolsystem::PathKind::file;
      if (exists && paths.insert(log.path).second) choice.logs.push_back(log);
    }
  }
  if (choice.logs.empty()) choice.problem = "no user has such a log";
  return choice;
}

}  // namespace

LogChoice chooseLogs(const Options& _options) {
  if (_options.pid) return logsOfProcess(_options);
  if (_options.allUsers) return logsOfAllUsers(_options);
  const ViewpointChoice choice = viewpointsOf(_options);
  if (choice.viewpoints.empty()) return withProblem(choice.problem);
  return logsOf(_options, choice.viewpoints.front(), _options.ca);
}

}  // namespace qmrkctl
