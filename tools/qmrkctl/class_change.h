// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/change_kind.h"
#include "tools/qmrkctl/class_list_file.h"
#include "tools/qmrkctl/command_report.h"

namespace qmrkctl {

/// A requested change of a class list.
struct ChangeRequest {
  ChangeKind kind = ChangeKind::enable;
  std::vector<std::string> names;                     ///< enable, disable, only
  std::string list;                                   ///< set
  std::optional<std::chrono::milliseconds> duration;  ///< of a lease; no value: for good
  /// The lease lasts so much longer: whoever asks switches off again himself, before it ends.
  std::chrono::milliseconds leaseReserve{0};
  std::string reason;
  std::chrono::milliseconds wait{2000};  ///< how long to wait for the answers
  bool isDryRun = false;
  bool isSilent = false;  ///< do not set the event
  bool isForced = false;  ///< write the list even if it has errors
};

/// The list and the leases after the change. Expired leases must have been swept before.
ClassListState changed(const ClassListState& _state, const ChangeRequest& _request, const Clocks& _now);

/// Changes the class list that the options name: under its lock, in one step, and after showing what is wrong with the
/// new list and what changes. Then makes every process that follows the list apply it, waits for the answers, and adds
/// the change to the history.
/// @return the exit code.
int changeClasses(const ChangeRequest& _request, const Options& _options, Report& _report);

}  // namespace qmrkctl
