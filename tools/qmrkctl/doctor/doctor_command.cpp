// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>

#include "quillmark_logging_names.h"
#include "tools/logs/civil_time.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/doctor/process_configurations.h"
#include "tools/qmrkctl/doctor/process_environment.h"
#include "tools/qmrkctl/doctor/rotated_logs.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/followed_logs.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/tail/record_files.h"
#include "tools/qmrkctl/tail/viewpoints.h"
#include "tools/system/account.h"

namespace qmrkctl {
namespace {

constexpr CivilTime recent = CivilTime{24} * 3600 * 1000;
constexpr std::size_t mostRecentRecords = 1000;

// 1 means that no log is ever full.
bool isUnlimited(const Configuration& _configuration) {
  const std::string* const limit = _configuration.value(Quillmark_logging::SPEC_LOG_FILE_LIMIT);
  return limit != nullptr && *limit == "1";
}

// What an examination finds; what several configurations share is found once.
class Examination {
 public:
  void add(const std::vector<Finding>& _findings) {
    for (const Finding& finding : _findings) {
      if (told_.insert({finding.code, finding.file, finding.line, finding.column, finding.text}).second)
        findings_.push_back(finding);
    }
  }

  void examineProcesses(const std::vector<RunningProcess>& _processes, const Viewpoint& _session) {
    for (const RunningProcess& process : _processes) {
      const SeenConfiguration* const own = configurations_.of(process);
      const SeenConfiguration* const ofListener = configurations_.ofListener(process);
      std::vector<Finding> findings;
      checkProcess(process,
                   {own == nullptr ? nullptr : &own->configuration,
                    ofListener == nullptr ? nullptr : &ofListener->configuration},
                   findings);
      checkProcessEnvironment(process, own, session_.of(_session, ""), findings);
      // What was found of a process that ends meanwhile is found of its end.
      if (!toolsystem::hasEnded(static_cast<int>(process.pid()))) add(findings);
    }
  }

  void examineRotation(const std::vector<RunningProcess>& _processes) {
    std::vector<const RunningProcess*> rotating;
    for (const RunningProcess& process : _processes) {
      const SeenConfiguration* const own = configurations_.of(process);
      if (own == nullptr || !isUnlimited(own->configuration)) rotating.push_back(&process);
    }
    std::vector<Finding> findings;
    checkRotatedLogs(rotating, findings);
    add(findings);
  }

  void examineConfigurations(const std::vector<Viewpoint>& _viewpoints, const std::string& _ca,
                             const std::vector<RunningProcess>& _processes) {
    for (const Viewpoint& viewpoint : _viewpoints) {
      configurations_.of(viewpoint, _ca);
      if (!_ca.empty()) continue;
      for (const std::string& ca : casToName(viewpoint))
        configurations_.of(viewpoint, ca);
    }
    for (const SeenConfiguration& seen : configurations_.all()) {
      add(checkConfiguration(seen.viewpoint, seen.configuration,
                             logsThatFollow(_processes, seen.configuration.init.path)));
    }
  }

  // The same record comes at every start.
  void examineRecords(const std::vector<Viewpoint>& _viewpoints, const std::string& _ca) {
    for (const Viewpoint& viewpoint : _viewpoints) {
      const std::vector<RecordFile> files = recordFilesOf(viewpoint, _ca);
      std::map<std::pair<std::size_t, std::string>, std::pair<int, CivilTime>> counts;
      for (const FoundRecord& found : readRecords(files, civilNow() - recent, mostRecentRecords).records) {
        auto& [count, last] = counts[{found.file, found.record.text}];
        ++count;
        last = found.record.time;
      }
      for (const auto& [key, value] : counts) {
        add({findingOf("Q614", {files[key.first].path, 0, 0},
                       key.second + " (" + std::to_string(value.first) + " times in a day, last at " +
                           civilText(value.second) + ")")});
      }
    }
  }

  std::vector<Finding>& findings() { return findings_; }

 private:
  ProcessConfigurations configurations_;
  ProcessConfigurations session_;  // not examined itself unless it is asked for
  std::vector<Finding> findings_;
  std::set<std::tuple<std::string, std::string, int, int, std::string>> told_;
};

std::string counted(std::ptrdiff_t _number, const std::string& _what) {
  return std::to_string(_number) + " " + _what + (_number == 1 ? "" : "s");
}

// The first line, the findings with the gravest first, and the exit code.
int tell(std::vector<Finding>& _findings, bool _isStrict, Report& _report) {
  std::ranges::stable_sort(_findings, {}, &Finding::severity);
  const auto count = [&_findings](Severity _severity) {
    return std::ranges::count(_findings, _severity, &Finding::severity);
  };
  const auto warnings = count(Severity::warning);
  const auto notes = count(Severity::note);
  const auto problems = count(Severity::error) + (_isStrict ? warnings : 0);
  std::string others;
  if (!_isStrict && warnings > 0) others = counted(warnings, "warning");
  if (notes > 0) others += (others.empty() ? "" : ", ") + counted(notes, "note");
  const std::string verdict = problems == 0 ? _report.painted("healthy", Style::good)
                                            : _report.painted(counted(problems, "problem"), Style::bad);
  _report.line(verdict + (others.empty() ? "" : " (" + others + ")"));
  for (const Finding& finding : _findings)
    _report.add(finding);
  _report.result()["healthy"] = problems == 0;
  _report.result()["problems"] = problems;
  _report.result()["warnings"] = warnings;
  _report.result()["notes"] = notes;
  return problems == 0 ? exitOk : exitNegative;
}

// Root looks after everybody's processes.
ProcessQuery examinedProcesses(const Options& _options) {
  ProcessQuery query = queryOf(_options);
  if (_options.user.empty() && !_options.pid && toolsystem::seesEveryProcess()) query.allUsers = true;
  return query;
}

int examine(bool _isStrict, const Options& _options, Report& _report) {
  if (_options.pid && isHiddenProcess(*_options.pid)) return refuseHiddenProcess(*_options.pid);
  RunningProcesses processes = runningProcesses(examinedProcesses(_options));
  const bool isWithoutLibrary = _options.pid && processes.found.empty();
  keepThoseOf(_options.ca, processes.found);
  Options ofOne = _options;
  ofOne.allUsers = false;
  const ViewpointChoice choice = viewpointsOf(ofOne);
  if (choice.viewpoints.empty()) {
    Report::message(shown(choice.problem));
    return exitNotFound;
  }
  if (!_options.app.empty() && processes.found.empty()) {
    Report::message("no application \"" + shown(_options.app) + "\" runs");
    return exitNotFound;
  }
  Examination examination;
  if (isWithoutLibrary) {
    const std::string pid = std::to_string(*_options.pid);
    examination.add({findingOf("Q615", {}, "the process " + pid + " does not have the library loaded")});
  }
  examination.examineProcesses(processes.found, ownViewpoint());
  examination.examineRotation(processes.found);
  examination.examineConfigurations(choice.viewpoints, _options.ca, processes.found);
  examination.examineRecords(choice.viewpoints, _options.ca);
  const int exitCode = tell(examination.findings(), _isStrict, _report);
  _report.result()["processes"] = processes.found.size();
  _report.result()["unseen_processes"] = processes.ofOthers;
  _report.detail("processes looked at: " + std::to_string(processes.found.size()));
  if (processes.ofOthers > 0) {
    _report.line("processes of other users that were not looked at: " + std::to_string(processes.ofOthers));
  }
  return exitCode;
}

}  // namespace

void addDoctorCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* command = _program.add_subcommand(
      "doctor", "Examine everything: configuration, folders, disk space, error records, running applications");
  const auto isStrict = std::make_shared<bool>(false);
  command->add_flag("--strict", *isStrict, "Warnings are problems, too");
  command->footer(
      "The first line begins with \"healthy\" or with the number of problems; each is followed by its effect and what "
      "to do. With --ca only that CA and the applications that use it. Ends with 0 when healthy, else with "
      "1.\nExample: sudo qmrkctl doctor --strict");
  command->callback([isStrict, &_choice] {
    _choice = {"doctor",
               [isStrict](const Options& _options, Report& _report) { return examine(*isStrict, _options, _report); }};
  });
}

}  // namespace qmrkctl
