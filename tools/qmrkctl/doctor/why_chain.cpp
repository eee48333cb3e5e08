// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/why_chain.h"

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/doctor/why_faults.h"
#include "tools/qmrkctl/doctor/written_files.h"

namespace qmrkctl {
namespace {

using platform::nativePath;

Finding error(const std::string& _code, const std::string& _file, const std::string& _text, const std::string& _fix) {
  return {_code, Severity::error, nativePath(_file), 0, 0, _text, "no line reaches the common log", _fix};
}

void addCfgStep(const WhyQuestion& _question, StepList& _steps) {
  const Configuration& configuration = _question.seen->configuration;
  const ConfigurationFile& cfg = configuration.cfg;
  const std::string path = nativePath(cfg.path);
  const bool isRead = configuration.failure.empty() && (configuration.wouldBeGenerated || cfg.isUsable());
  const Finding* const fault = isRead ? nullptr : faultOfCfg(_question);
  if (hasLostCfg(_question)) {
    const std::string now = fault != nullptr ? fault->text : "the file cannot be read now";
    _steps.ok("configuration",
              nativePath(statusOf(_question)->cfgPath.text) + " at the set-up; for the next start: " + now);
  } else if (fault != nullptr) {
    _steps.failBy("configuration", *fault);
  } else if (!configuration.failure.empty()) {
    _steps.fail("configuration", error("Q203", cfg.path, configuration.failure, "install a configuration of the CA"));
  } else if (configuration.wouldBeGenerated) {
    _steps.unknown("configuration", "the generic file would be generated first; then " + path + ", " + cfg.rule);
  } else if (!cfg.exists()) {
    _steps.fail("configuration", error("Q201", cfg.path, "the file is missing: " + cfg.rule,
                                       "install the file, or let REDIRECT_CA_NR name a CA that is installed"));
  } else {
    _steps.ok("configuration", path + ", " + cfg.rule);
  }
}

std::string placeText(const Setting& _setting) { return "line " + std::to_string(_setting.keyPlace.line); }

void addStateStep(const WhyQuestion& _question, StepList& _steps) {
  using Quillmark_logging::LOG_STATE;
  const ConfigurationFile& cfg = _question.seen->configuration.cfg;
  const Setting* const state = cfg.setting(LOG_STATE);
  const ProcessStatus* const status = statusOf(_question);
  if (_question.seen->configuration.isOn(LOG_STATE)) {
    _steps.ok(LOG_STATE, state == nullptr ? "on" : "on in " + placeText(*state));
  } else if (status != nullptr && isSetUp(*status)) {
    _steps.ok(LOG_STATE, "on since the set-up; what the file says now counts at the next one");
  } else if (const Finding* const fault = faultOfKey(_question, LOG_STATE)) {
    _steps.failBy(LOG_STATE, *fault);
  } else if (state == nullptr) {
    _steps.fail(LOG_STATE, error("Q309", cfg.path, "LOG_STATE is missing, so logging is off", "add LOG_STATE=TRUE"));
  } else {
    Finding finding = error("Q311", cfg.path, "LOG_STATE is \"" + state->value + "\", so logging is off",
                            "write LOG_STATE=TRUE, then restart the application");
    finding.line = state->valuePlace.line;
    finding.column = state->valuePlace.column;
    _steps.fail(LOG_STATE, finding);
  }
}

void addNameStep(const WhyQuestion& _question, StepList& _steps) {
  using Quillmark_logging::COMMON_LOG_FILE_NAME;
  const ConfigurationFile& cfg = _question.seen->configuration.cfg;
  const Setting* const name = cfg.setting(COMMON_LOG_FILE_NAME);
  const Finding* const fault = name == nullptr ? faultOfKey(_question, COMMON_LOG_FILE_NAME) : nullptr;
  if (name == nullptr && hasLostCfg(_question)) {
    _steps.ok("file name", "that of the set-up");
  } else if (fault != nullptr) {
    _steps.failBy("file name", *fault);
  } else if (name == nullptr) {
    _steps.fail("file name", error("Q310", cfg.path, "COMMON_LOG_FILE_NAME is missing", "add COMMON_LOG_FILE_NAME"));
  } else {
    _steps.ok("file name", name->value + " in " + placeText(*name));
  }
}

// An application that has opened the log writes on, whatever becomes of its rights.
void addFaultyLogStep(const WhyQuestion& _question, const Finding& _fault, StepList& _steps) {
  const ProcessStatus* const status = statusOf(_question);
  const std::string log = nativePath(_question.seen->configuration.logs->commonLog);
  const bool mayBeOpen = _fault.code == "Q502" && status != nullptr && isSetUp(*status);
  const std::optional<bool> isOpen = mayBeOpen ? hasOpenForWriting(_question.process->pid(), log) : false;
  if (!isOpen) {
    _steps.unknown("file", log + " may be open since the set-up; now " + _fault.text);
  } else if (*isOpen) {
    _steps.ok("file", log + ", open since the set-up; at the next one " + _fault.text);
  } else {
    _steps.failBy("file", _fault);
  }
}

void addFolderSteps(const WhyQuestion& _question, StepList& _steps) {
  const auto& logs = _question.seen->configuration.logs;
  if (!logs) {
    _steps.fail("folder", error("Q703", "", "the system knows no folder of the application data of the user",
                                "set HOME to an absolute path"));
    return;
  }
  const auto isThere = [&](const std::string& _path) {
    return factsOf(_question.seen->viewpoint, _path).kind != toolsystem::PathKind::missing;
  };
  if (const Finding* const fault = faultOfFolder(_question)) {
    _steps.failBy("folder", *fault);
  } else {
    _steps.ok("folder", nativePath(logs->folder) + (isThere(logs->folder) ? "" : ", which would be created"));
  }
  if (const Finding* const fault = faultOfLog(_question)) {
    addFaultyLogStep(_question, *fault, _steps);
  } else {
    _steps.ok("file", nativePath(logs->commonLog) + (isThere(logs->commonLog) ? "" : " would be created"));
  }
}

}  // namespace

std::string_view stepStateName(StepState _state) {
  switch (_state) {
    case StepState::ok:
      return "ok";
    case StepState::failed:
      return "FAIL";
    case StepState::unknown:
      break;
  }
  return "unknown";
}

std::vector<WhyStep> fileSteps(const WhyQuestion& _question) {
  StepList steps;
  addCfgStep(_question, steps);
  if (steps.isOpen()) addStateStep(_question, steps);
  if (steps.isOpen()) addNameStep(_question, steps);
  if (steps.isOpen()) addFolderSteps(_question, steps);
  return steps.take();
}

std::vector<WhyStep> whyChain(const WhyQuestion& _question) {
  StepList steps;
  steps.add(setUpSteps(_question));
  for (const auto part : {fileSteps, classSteps, deliverySteps}) {
    if (steps.isOpen()) steps.add(part(_question));
  }
  return steps.take();
}

}  // namespace qmrkctl
