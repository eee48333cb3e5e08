// SPDX-License-Identifier: MIT
#include "diagnostics/status_page_values.h"
#include "tools/logs/merged_logs.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/doctor/why_chain.h"
#include "tools/qmrkctl/doctor/why_faults.h"

namespace qmrkctl {
namespace {

void addCaStep(const WhyQuestion& _question, StepList& _steps) {
  const Configuration& configuration = _question.seen->configuration;
  std::string seen = configuration.caAsked + " asked for";
  if (hasLostCfg(_question)) {
    _steps.ok("CA", seen);
    return;
  }
  seen += ", files of " + configuration.caOfFiles;
  if (configuration.isFallenBack) seen += "; " + configuration.caAsked + " has no .cfg file: fallen back to GE";
  if (configuration.isRedirected) seen += "; GE redirects";
  const ProcessStatus* const status = statusOf(_question);
  std::optional<Finding> change;
  if (status != nullptr) change = changedSinceSetUp(processText(*_question.process), *status, configuration);
  if (change) {
    _steps.fail("CA", *change);
  } else {
    _steps.ok("CA", seen);
  }
}

void addListenerStep(const WhyQuestion& _question, const ProcessStatus& _status, StepList& _steps) {
  if (const Finding* const finding = findingAmong(_question, {"Q602", "Q604", "Q609"})) {
    _steps.fail("listener", *finding);
    return;
  }
  if (_status.listener.state == status::ListenerState::none) {
    _steps.ok("listener", "none: a changed class list counts at the next start");
  } else {
    _steps.ok("listener", "waits for " + _status.listener.event + ", follows " + _status.listener.ca);
  }
}

std::string spaceText(std::uint64_t _bytes) {
  const std::uint64_t kib = _bytes / 1024;
  return kib < 1024 ? std::to_string(kib) + " KiB" : std::to_string(kib / 1024) + " MiB";
}

void addSpaceStep(const WhyQuestion& _question, StepList& _steps) {
  if (const Finding* const fault = faultOfSpace(_question)) {
    _steps.failBy("space", *fault);
    return;
  }
  const Viewpoint& viewpoint = _question.seen->viewpoint;
  const std::string folder = existingPart(viewpoint, _question.seen->configuration.logs->folder);
  if (const auto free = toolsystem::freeBytes(reachedPath(viewpoint, folder))) {
    _steps.ok("space", spaceText(*free) + " free");
  } else {
    _steps.unknown("space", "the system does not tell");
  }
}

void addWritingStep(const WhyQuestion& _question, const ProcessStatus& _status, StepList& _steps) {
  if (const Finding* const finding = findingAmong(_question, {"Q605"})) {
    _steps.fail("writing", *finding);
    return;
  }
  std::uint64_t lost = 0;
  for (const LogFileStatus& file : _status.files)
    lost += file.lost + file.dropped;
  _steps.ok("writing", lost == 0 ? "no message was lost" : std::to_string(lost) + " messages were lost earlier");
}

void addLastLineStep(const WhyQuestion& _question, StepList& _steps) {
  constexpr std::int64_t farthest = std::int64_t{64} * 1024 * 1024;
  MessageQuery query;
  query.classes = {_question.logClass};
  query.farthest = farthest;
  MergedLogs logs({reachedPath(_question.seen->viewpoint, _question.seen->configuration.logs->commonLog)}, query);
  logs.begin(1);
  CivilTime last = 0;
  for (MergedLine line; logs.next(line) || logs.takeFragment(line, 0);)
    last = line.time;
  if (last == 0) {
    _steps.unknown("last line", "the last 64 MiB of the common log have none of this class");
  } else {
    _steps.ok("last line", civilText(last));
  }
}

}  // namespace

std::vector<WhyStep> setUpSteps(const WhyQuestion& _question) {
  StepList steps;
  if (_question.process == nullptr) {
    steps.unknown("application", "none is looked at: judged for one that starts now");
  } else if (!_question.process->facts.hasLibrary) {
    steps.fail("library", {"Q615", Severity::error, "", 0, 0, "the process does not have the library loaded",
                           "it does not log through it", "look at another process: qmrkctl apps"});
  } else {
    steps.ok("library", processText(*_question.process));
  }
  const ProcessStatus* const status = statusOf(_question);
  if (_question.process != nullptr && status == nullptr) {
    steps.unknown("set-up", "the application shows nothing of its logging");
  } else if (status != nullptr && status->setUp.result == status::Result::failed) {
    steps.fail("set-up", findingOf("Q607", {}, "the set-up failed: " + status->setUp.error.text));
  } else if (status != nullptr && status->setUp.result == status::Result::none) {
    steps.fail("set-up", findingOf("Q607", {}, "the application has set nothing up", "call initDefaultLogs"));
  } else if (status != nullptr) {
    steps.ok("set-up", "done");
  }
  if (steps.isOpen()) addCaStep(_question, steps);
  return steps.take();
}

std::vector<WhyStep> deliverySteps(const WhyQuestion& _question) {
  StepList steps;
  const ProcessStatus* const status = statusOf(_question);
  if (status != nullptr) addListenerStep(_question, *status, steps);
  if (steps.isOpen()) addSpaceStep(_question, steps);
  if (steps.isOpen() && status != nullptr) addWritingStep(_question, *status, steps);
  if (steps.isOpen()) addLastLineStep(_question, steps);
  return steps.take();
}

}  // namespace qmrkctl
