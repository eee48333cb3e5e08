// SPDX-License-Identifier: MIT
#include <memory>
#include <string>
#include <vector>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/ca_choice.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

struct NamedPath {
  std::string role;
  std::string path;
  std::string rule;
};

// The variable that decides a base folder, or what does without one.
std::string ruleOfBase(const Viewpoint& _viewpoint, const std::vector<std::string>& _variables,
                       const std::string& _default) {
  if (!toolsystem::foldersFollowEnvironment()) return "the system's folder";
  for (const std::string& name : _variables) {
    const auto variable = _viewpoint.environment.find(name);
    if (variable != _viewpoint.environment.end() && variable->second.starts_with('/')) return "by " + name;
  }
  return _default;
}

void addLogs(const LogPlaces& _logs, const Configuration& _configuration, std::vector<NamedPath>& _paths) {
  const Setting* const root = _configuration.cfg.setting(names::COMMON_LOG_FILE_ROOT);
  const Setting* const name = _configuration.cfg.setting(names::COMMON_LOG_FILE_NAME);
  const auto line = [](const Setting& _setting) {
    return _setting.key + " in line " + std::to_string(_setting.keyPlace.line);
  };
  _paths.push_back({"log folder", _logs.folder, root == nullptr ? "the default COMMON_LOG_FILE_ROOT" : line(*root)});
  _paths.push_back({"common log", _logs.commonLog, name == nullptr ? "COMMON_LOG_FILE_NAME is missing" : line(*name)});
  _paths.push_back({"application logs", _logs.applicationFolder, "beside the common log"});
  _paths.push_back({"error records", _logs.errorRecords, "beside the common log"});
  if (_configuration.genericLogs && _configuration.genericLogs->folder != _logs.folder) {
    _paths.push_back({"set-up records", _configuration.genericLogs->errorRecords, "in the log folder of \"GE\""});
  }
}

std::vector<NamedPath> allPaths(const Viewpoint& _viewpoint, const Configuration& _configuration) {
  std::vector<NamedPath> paths = {{".cfg folder", _configuration.cfgFolder,
                                   ruleOfBase(_viewpoint, {"QMRK_COMMON_PROGRAM_FILES"}, "the default of the system")},
                                  {".init folder", _configuration.initFolder,
                                   ruleOfBase(_viewpoint, {"QMRK_COMMON_APPDATA"}, "the default of the system")},
                                  {"generic .cfg", _configuration.generic.path, _configuration.generic.rule}};
  if (_configuration.asked.path != _configuration.cfg.path) {
    paths.push_back({".cfg asked for", _configuration.asked.path, _configuration.asked.rule});
  }
  paths.push_back({".cfg", _configuration.cfg.path, _configuration.cfg.rule});
  paths.push_back({".init", _configuration.init.path, _configuration.init.rule});
  paths.push_back(
      {"user data", _configuration.userBase,
       ruleOfBase(_viewpoint, {"QMRK_APPDATA", "XDG_DATA_HOME", "HOME"}, "the home of the password entry")});
  if (_configuration.logs) addLogs(*_configuration.logs, _configuration, paths);
  return paths;
}

std::string rightsText(const toolsystem::PathRights& _rights) {
  if (!_rights.exists) return "missing";
  return std::string("exists, ") + (_rights.isReadable ? "readable" : "not readable") + ", " +
         (_rights.isWritable ? "writable" : "not writable");
}

void tell(const NamedPath& _path, const toolsystem::PathRights& _rights, Report& _report) {
  const Style style = _rights.exists && _rights.isReadable ? Style::good : Style::doubtful;
  _report.line(_path.role + ": " + shown(platform::nativePath(_path.path)));
  _report.line("  " + _report.painted(rightsText(_rights), style) + "; " + shown(_path.rule));
  _report.result()["paths"].push_back({{"role", _path.role},
                                       {"path", platform::nativePath(_path.path)},
                                       {"rule", _path.rule},
                                       {"exists", _rights.exists},
                                       {"readable", _rights.isReadable},
                                       {"writable", _rights.isWritable}});
}

int tellWhere(const Options& _options, Report& _report) {
  int exitCode = exitOk;
  const std::optional<Viewpoint> viewpoint = askedViewpoint(_options, exitCode);
  if (!viewpoint) return exitCode;
  const Configuration configuration = readConfiguration(*viewpoint, _options.ca);
  _report.line("for the user " + shown(viewpoint->account.name) + ": " + shown(caText(configuration)));
  _report.result() = {{"user", viewpoint->account.name}, {"ca", caJson(configuration)}, {"paths", Json::array()}};
  std::vector<NamedPath> paths = allPaths(*viewpoint, configuration);
  std::erase_if(paths, [](const NamedPath& _path) { return _path.path.empty(); });
  std::vector<std::string> asked;
  asked.reserve(paths.size());
  for (const NamedPath& path : paths)
    asked.push_back(path.path);
  const std::vector<toolsystem::PathRights> rights = rightsOn(*viewpoint, asked);
  for (std::size_t i = 0; i < paths.size(); ++i)
    tell(paths[i], rights[i], _report);
  if (configuration.failure.empty()) return exitOk;
  Report::message("a set-up fails: " + shown(platform::nativePath(configuration.failure)));
  return exitNegative;
}

}  // namespace

void addWhereCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command = _program.add_subcommand(
      "where", "Say where the files and logs are, why there, and what the user may do with them");
  command->footer("Example: qmrkctl where --ca CA12 --user anna");
  command->callback([&_choice] { _choice = {"where", &tellWhere}; });
}

}  // namespace qmrkctl
