// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/class_list_file.h"
#include "tools/qmrkctl/command_report.h"

namespace qmrkctl {

enum class ChangeKind { enable, disable, only, set, clear };

/// What is to become of a class list.
struct ChangeRequest {
  ChangeKind kind = ChangeKind::enable;
  std::vector<std::string> names;                     ///< enable, disable, only
  std::string list;                                   ///< set
  std::optional<std::chrono::milliseconds> duration;  ///< of a lease; no value: for good
  std::string reason;
  std::chrono::milliseconds wait{2000};  ///< for the answers
  bool isDryRun = false;
  bool isSilent = false;  ///< do not set the event
  bool isForced = false;  ///< whatever is wrong with the list
};

/// "enable", "disable" ...
std::string_view changeName(ChangeKind _kind);

/// The list and the leases as they are to be. Leases that are over have ended already.
ClassListState changed(const ClassListState& _state, const ChangeRequest& _request, const Clocks& _now);

/// Changes the class list of the CA and viewpoint of the options: under its lock, in one step, with what is wrong with
/// the new list and what changes shown first; then lets every process that follows it apply it, and waits for the
/// answers.
/// @return the exit code.
int changeClasses(const ChangeRequest& _request, const Options& _options, Report& _report);

}  // namespace qmrkctl
