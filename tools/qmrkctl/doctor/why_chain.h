// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/doctor/process_configurations.h"
#include "tools/qmrkctl/finding.h"

namespace qmrkctl {

enum class StepState { ok, failed, unknown };

/// One step of a line's way from its statement to the common log.
struct WhyStep {
  StepState state = StepState::ok;
  std::string name;
  std::string seen;                ///< what was found, for people
  std::optional<Finding> finding;  ///< of a failed step
};

/// "ok", "FAIL", "unknown".
std::string_view stepStateName(StepState _state);

/// The question, and what is known to answer it. Does not own what it points to.
struct WhyQuestion {
  std::string logClass;
  const RunningProcess* process = nullptr;  ///< null: a program started now
  const SeenConfiguration* seen = nullptr;  ///< the configuration as the process finds it
  std::vector<Finding> findings;            ///< of checkProcess
  std::vector<Finding> faults;              ///< of checkConfiguration
  std::string options = {};                 ///< those by which commands reach the class list, such as "--pid 7 "
};

/// The steps in order, up to the first that fails.
std::vector<WhyStep> whyChain(const WhyQuestion& _question);

// The parts of the chain, each up to its first failing step.

/// Library, set-up and CA of the process.
std::vector<WhyStep> setUpSteps(const WhyQuestion& _question);

/// Configuration file, its keys, folder and file of the log.
std::vector<WhyStep> fileSteps(const WhyQuestion& _question);

/// Filter and class list, and what the process has applied of them.
std::vector<WhyStep> classSteps(const WhyQuestion& _question);

/// Listener, disk space, failed writes, and the last line.
std::vector<WhyStep> deliverySteps(const WhyQuestion& _question);

/// Collects steps until one fails; ignores those added later.
class StepList {
 public:
  bool isOpen() const { return steps_.empty() || steps_.back().state != StepState::failed; }
  void ok(const std::string& _name, const std::string& _seen) { add({StepState::ok, _name, _seen, {}}); }
  void unknown(const std::string& _name, const std::string& _seen) { add({StepState::unknown, _name, _seen, {}}); }

  /// Shows the text of the finding as what was found.
  void fail(const std::string& _name, Finding _finding) {
    const std::string seen = _finding.text;
    add({StepState::failed, _name, seen, std::move(_finding)});
  }
  /// A fault of the configuration, which is an error here because it stops the line.
  void failBy(const std::string& _name, Finding _fault) {
    _fault.severity = Severity::error;
    fail(_name, std::move(_fault));
  }
  void add(std::vector<WhyStep> _steps) {
    for (WhyStep& step : _steps)
      add(std::move(step));
  }
  std::vector<WhyStep> take() { return std::move(steps_); }

 private:
  void add(WhyStep _step) {
    if (isOpen()) steps_.push_back(std::move(_step));
  }

  std::vector<WhyStep> steps_;
};

}  // namespace qmrkctl
