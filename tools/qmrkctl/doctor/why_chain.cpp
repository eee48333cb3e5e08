// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/why_chain.h"

#include "platform/native_path.h"
#include "quillmark_logging_names.h"

namespace qmrkctl {
namespace {

using platform::nativePath;

Finding error(const std::string& _code, const std::string& _file, const std::string& _text, const std::string& _fix) {
  return {_code, Severity::error, nativePath(_file), 0, 0, _text, "no line reaches the common log", _fix};
}

void addCfgStep(const Configuration& _configuration, StepList& _steps) {
  const ConfigurationFile& cfg = _configuration.cfg;
  const std::string path = nativePath(cfg.path);
  if (_configuration.wouldBeGenerated) {
    _steps.unknown("configuration", "the generic file would be generated first; then " + path + ", " + cfg.rule);
  } else if (!cfg.exists()) {
    _steps.fail("configuration",
                error(_configuration.isRedirected ? "Q204" : "Q201", cfg.path, "the file is missing: " + cfg.rule,
                      "install the file, or let REDIRECT_CA_NR name a CA that is installed"));
  } else if (!cfg.isUsable()) {
    _steps.fail("configuration", error("Q211", cfg.path, "the file is there and cannot be read by the user",
                                       "make it a regular file that every user may read"));
  } else {
    _steps.ok("configuration", path + ", " + cfg.rule);
  }
  if (!_configuration.failure.empty())
    _steps.fail("configuration", error("Q203", cfg.path, _configuration.failure, "install a configuration of the CA"));
}

std::string placeText(const Setting& _setting) { return "line " + std::to_string(_setting.keyPlace.line); }

void addKeySteps(const Configuration& _configuration, StepList& _steps) {
  using namespace Quillmark_logging;
  const ConfigurationFile& cfg = _configuration.cfg;
  const Setting* const state = cfg.setting(LOG_STATE);
  if (_configuration.isOn(LOG_STATE)) {
    _steps.ok(LOG_STATE, state == nullptr ? "on" : "on in " + placeText(*state));
  } else if (state == nullptr) {
    _steps.fail(LOG_STATE, error("Q309", cfg.path, "LOG_STATE is missing, so logging is off", "add LOG_STATE=TRUE"));
  } else {
    Finding finding = error("Q311", cfg.path, "LOG_STATE is \"" + state->value + "\", so logging is off",
                            "write LOG_STATE=TRUE, then restart the application");
    finding.line = state->valuePlace.line;
    finding.column = state->valuePlace.column;
    _steps.fail(LOG_STATE, finding);
  }
  const Setting* const name = cfg.setting(COMMON_LOG_FILE_NAME);
  if (name == nullptr) {
    _steps.fail("file name", error("Q310", cfg.path, "COMMON_LOG_FILE_NAME is missing", "add COMMON_LOG_FILE_NAME"));
  } else {
    _steps.ok("file name", name->value + " in " + placeText(*name));
  }
}

// The nearest folder that is there; the others would be created in it.
std::string existingFolder(const Viewpoint& _viewpoint, std::string _path) {
  while (!_path.empty() && factsOf(_viewpoint, _path).kind == toolsystem::PathKind::missing) {
    const std::size_t separator = _path.find_last_of("\\/");
    if (separator == std::string::npos) return _path;
    _path.resize(separator);
  }
  return _path.empty() ? "/" : _path;
}

void addFolderSteps(const SeenConfiguration& _seen, StepList& _steps) {
  const Viewpoint& viewpoint = _seen.viewpoint;
  const auto& logs = _seen.configuration.logs;
  if (!logs) {
    _steps.fail("folder", error("Q703", "", "the system knows no folder of the application data of the user",
                                "set HOME to an absolute path"));
    return;
  }
  const std::string user = viewpoint.account.name;
  const std::string folder = existingFolder(viewpoint, logs->folder);
  const bool hasFile = factsOf(viewpoint, logs->commonLog).kind != toolsystem::PathKind::missing;
  if (factsOf(viewpoint, folder).kind != toolsystem::PathKind::folder) {
    _steps.fail("folder", error("Q505", folder, "this is no folder", "remove what stands there"));
  } else if (!hasFile && !mayWrite(viewpoint, folder)) {
    _steps.fail("folder", error("Q501", folder, user + " may not write there", "give " + user + " the right to write"));
  } else {
    _steps.ok("folder", nativePath(logs->folder) + (folder == logs->folder ? "" : ", which would be created"));
  }
  if (!hasFile) {
    _steps.ok("file", nativePath(logs->commonLog) + " would be created");
  } else if (factsOf(viewpoint, logs->commonLog).kind != toolsystem::PathKind::file) {
    _steps.fail("file", error("Q505", logs->commonLog, "this is no regular file", "remove what stands there"));
  } else if (!mayWrite(viewpoint, logs->commonLog)) {
    _steps.fail("file",
                error("Q502", logs->commonLog, user + " may not write it", "give " + user + " the right to write"));
  } else {
    _steps.ok("file", nativePath(logs->commonLog));
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
  addCfgStep(_question.seen->configuration, steps);
  // A file that is generated later is not known.
  if (steps.isOpen() && _question.seen->configuration.cfg.isRead) addKeySteps(_question.seen->configuration, steps);
  if (steps.isOpen()) addFolderSteps(*_question.seen, steps);
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
