// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <string>

#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/doctor/why_chain.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/tail/viewpoints.h"

namespace qmrkctl {
namespace {

std::string paddedState(StepState _state, const Report& _report) {
  std::string text(stepStateName(_state));
  const Style style = _state == StepState::ok       ? Style::good
                      : _state == StepState::failed ? Style::bad
                                                    : Style::doubtful;
  const std::string blanks(std::max<std::size_t>(8, text.size() + 1) - text.size(), ' ');
  return _report.painted(text, style) + blanks;
}

Json jsonOfStep(const WhyStep& _step) {
  return {{"state", stepStateName(_step.state)}, {"step", _step.name}, {"seen", _step.seen}};
}

// @return whether the line gets through, as far as that is known.
bool showChain(const WhyQuestion& _question, Report& _report) {
  Json chain = Json::object();
  if (_question.process != nullptr) {
    chain["pid"] = _question.process->pid();
    chain["application"] = _question.process->application;
    _report.line(_report.painted(shown(processText(*_question.process)), Style::strong));
  }
  chain["steps"] = Json::array();
  bool isThrough = true;
  for (const WhyStep& step : whyChain(_question)) {
    constexpr std::size_t width = 14;
    std::string name = step.name;
    name.resize(std::max(width, name.size() + 1), ' ');
    _report.line(paddedState(step.state, _report) + name + shown(step.seen));
    chain["steps"].push_back(jsonOfStep(step));
    if (step.finding) _report.add(*step.finding);
    isThrough = isThrough && step.state != StepState::failed;
  }
  chain["reaches_the_log"] = isThrough;
  _report.result()["chains"].push_back(chain);
  return isThrough;
}

// Where the file is gone that names them, the logs are those of the set-up.
SeenConfiguration withLogsOfSetUp(SeenConfiguration _seen, const RunningProcess& _process) {
  if (!_process.status || !hasLostCfg(*_process.status, _seen.configuration)) return _seen;
  const PageText& log = _process.status->commonLogPath;
  if (log.isCut || log.bytes.empty()) return _seen;
  LogPlaces& logs = _seen.configuration.logs.emplace();
  logs.commonLog = log.bytes;
  logs.folder = parentOf(log.bytes);
  return _seen;
}

// By which options commands of this session reach the class list; none where they do without.
std::string optionsFor(const SeenConfiguration& _seen, const RunningProcess* _process, const Options& _options) {
  const auto reaches = [&_seen](const Viewpoint& _viewpoint, const std::string& _ca) {
    return _viewpoint.root == _seen.viewpoint.root &&
           readConfiguration(_viewpoint, _ca).init.path == _seen.configuration.init.path;
  };
  const Viewpoint own = ownViewpoint();
  std::string ca = _seen.ca.empty() ? "" : "--ca " + _seen.ca + " ";
  if (reaches(own, "")) return "";
  if (reaches(own, _seen.ca)) return ca;
  if (_process != nullptr) return "--pid " + std::to_string(_process->pid()) + " " + ca;
  return _options.user.empty() ? ca : "--user " + _options.user + " " + ca;
}

WhyQuestion questionOf(const std::string& _class, const RunningProcess* _process, const SeenConfiguration& _seen,
                       const Options& _options) {
  return {_class,
          _process,
          &_seen,
          {},
          checkConfiguration(_seen.viewpoint, _seen.configuration),
          optionsFor(_seen, _process, _options)};
}

bool asksForProcess(const Options& _options) { return _options.pid.has_value() || !_options.app.empty(); }

int explainWhy(const std::string& _class, const Options& _options, Report& _report) {
  const ViewpointChoice choice = viewpointsOf(_options);
  if (choice.viewpoints.empty()) {
    Report::message(shown(choice.problem));
    return exitNotFound;
  }
  ProcessQuery query = queryOf(_options);
  if (asksForProcess(_options) && _options.user.empty() && toolsystem::seesEveryProcess()) query.allUsers = true;
  std::vector<RunningProcess> processes;
  if (_options.ca.empty()) processes = runningProcesses(query).found;
  if (asksForProcess(_options) && _options.ca.empty() && processes.empty()) {
    if (_options.pid && isHiddenProcess(*_options.pid)) return refuseHiddenProcess(*_options.pid);
    Report::message(_options.pid ? "the process " + std::to_string(*_options.pid) + " does not have the library loaded"
                                 : "no application \"" + shown(_options.app) + "\" runs");
    return exitNotFound;
  }
  _report.result()["class"] = _class;
  _report.result()["chains"] = Json::array();
  ProcessConfigurations configurations;
  bool isThrough = true;
  for (const RunningProcess& process : processes) {
    const SeenConfiguration* const found = configurations.of(process);
    if (found == nullptr) continue;
    const SeenConfiguration seen = withLogsOfSetUp(*found, process);
    WhyQuestion question = questionOf(_class, &process, seen, _options);
    const SeenConfiguration* const ofListener = configurations.ofListener(process);
    checkProcess(process, {&seen.configuration, ofListener == nullptr ? nullptr : &ofListener->configuration},
                 question.findings);
    isThrough = showChain(question, _report) && isThrough;
  }
  if (_report.result()["chains"].empty()) {
    const SeenConfiguration& seen = configurations.of(choice.viewpoints.front(), _options.ca);
    isThrough = showChain(questionOf(_class, nullptr, seen, _options), _report);
  }
  return isThrough ? exitOk : exitNegative;
}

}  // namespace

void addWhyCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* command = _program.add_subcommand(
      "why", "Follow a line of a class from its application to the common log, and say where it stops");
  const auto logClass = std::make_shared<std::string>();
  command->add_option("CLASS", *logClass, "Name of a log: \"Demo.App.info\"")->required();
  command->footer(
      "Looks at each running application of the user, with --pid or --app at that one, with --ca at one that would "
      "start "
      "for that CA. Each step is ok, FAIL or unknown; behind the first FAIL stands what to do.\n"
      "Example: qmrkctl why Demo.App.info --app demo");
  command->callback([logClass, &_choice] {
    _choice = {"why", [logClass](const Options& _options, Report& _report) {
                 return explainWhy(*logClass, _options, _report);
               }};
  });
}

}  // namespace qmrkctl
