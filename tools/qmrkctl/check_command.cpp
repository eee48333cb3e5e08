// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <tuple>

#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/followed_logs.h"
#include "tools/qmrkctl/running_processes.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"

namespace qmrkctl {
namespace {

// What is checked, and what was found so far. Files that several CAs share are told once.
class CheckRun {
 public:
  explicit CheckRun(Report& _report) : report_(_report), files_(Json::array()) {}

  void note(const ConfigurationFile& _file) {
    if (_file.path.empty() || !paths_.insert(_file.systemPath).second) return;
    files_.push_back(_file.systemPath);
    report_.detail("checked " + shown(_file.systemPath));
  }

  void add(const std::vector<Finding>& _findings) {
    for (const Finding& finding : _findings) {
      if (told_.insert({finding.code, finding.file, finding.line, finding.column, finding.text}).second) {
        report_.add(finding);
      }
    }
  }

  int end() {
    const auto count = [this](Severity _severity) {
      return std::count_if(report_.findings().begin(), report_.findings().end(),
                           [_severity](const Finding& _finding) { return _finding.severity == _severity; });
    };
    report_.result() = {{"files", files_},
                        {"errors", count(Severity::error)},
                        {"warnings", count(Severity::warning)},
                        {"notes", count(Severity::note)}};
    const std::string files = std::to_string(files_.size()) + (files_.size() == 1 ? " file" : " files");
    if (report_.findings().empty()) {
      report_.line(report_.painted("no findings", Style::good) + " in " + files);
      return exitOk;
    }
    report_.line("errors: " + std::to_string(count(Severity::error)) + ", warnings: " +
                 std::to_string(count(Severity::warning)) + ", notes: " + std::to_string(count(Severity::note)) +
                 " in " + files + "; \"qmrkctl explain CODE\" says more");
    return exitNegative;
  }

 private:
  Report& report_;
  Json files_;
  std::set<std::string> paths_;
  std::set<std::tuple<std::string, std::string, int, int, std::string>> told_;
};

int checkOneFile(const std::string& _path, Report& _report) {
  const Viewpoint own = ownViewpoint();
  const ConfigurationFile file = readNamedFile(own, _path);
  if (file.facts.kind == toolsystem::PathKind::missing && !file.facts.isHidden) {
    Report::message("there is no file " + shown(_path));
    return exitNotFound;
  }
  if (file.facts.isHidden || (file.facts.kind == toolsystem::PathKind::file && !file.rights.isReadable)) {
    Report::message("permission denied for " + shown(_path) + "; root may: sudo qmrkctl check \"" + shown(_path) +
                    "\"");
    return exitNoPermission;
  }
  CheckRun run(_report);
  run.note(file);
  run.add(checkFile(own, file, _path.ends_with(".init") ? FileRole::init : FileRole::cfg));
  return run.end();
}

int checkCas(const Options& _options, bool _isAll, Report& _report) {
  int exitCode = exitOk;
  const std::optional<Viewpoint> viewpoint = askedViewpoint(_options, exitCode);
  if (!viewpoint) return exitCode;
  std::vector<std::string> cas = {_options.ca};
  if (_isAll) {
    const std::vector<std::string> installed = casToName(*viewpoint);
    cas.insert(cas.end(), installed.begin(), installed.end());
  }
  const RunningProcesses processes = runningProcesses(steeredProcesses(_options));
  CheckRun run(_report);
  for (const std::string& ca : cas) {
    const Configuration configuration = readConfiguration(*viewpoint, ca);
    for (const ConfigurationFile* const file : {&configuration.generic, &configuration.cfg, &configuration.init})
      run.note(*file);
    run.add(checkConfiguration(*viewpoint, configuration, logsThatFollow(processes.found, configuration.init.path)));
  }
  return run.end();
}

}  // namespace

void addCheckCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command = _program.add_subcommand("check", "Say what is wrong with the configuration");
  struct Arguments {
    std::string file;
    bool isAll = false;
  };
  const auto arguments = std::make_shared<Arguments>();
  CLI::Option* const file =
      command->add_option("file", arguments->file, "A .cfg or .init file by itself, instead of a whole configuration");
  file->type_name("FILE")->check(checkNotEmpty);
  command->add_flag("--all", arguments->isAll, "Every CA that is installed")->excludes(file);
  command->footer(
      "Example: qmrkctl check --ca CA12\n"
      "Without FILE it checks what a set-up for the CA meets: files, folders, rights, space. Ends with 1 when it finds "
      "something.");
  command->callback([arguments, &_choice] {
    _choice = {"check", [arguments](const Options& _options, Report& _report) {
                 return arguments->file.empty() ? checkCas(_options, arguments->isAll, _report)
                                                : checkOneFile(arguments->file, _report);
               }};
  });
}

}  // namespace qmrkctl
