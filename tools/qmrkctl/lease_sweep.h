// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/acknowledgement.h"
#include "tools/qmrkctl/class_list_file.h"

namespace qmrkctl {

/// The class lists of a viewpoint that have leases.
std::vector<ClassListPlace> listsWithLeases(const Viewpoint& _viewpoint);

/// What a sweep did with one list.
struct SweptList {
  ClassListPlace place;
  std::vector<std::string> ended;  ///< classes that went off
  Acknowledgement acknowledgement;
  std::optional<toolsystem::FileFailure> failure;
};

/// Ends the leases of a list that are over, and lets its applications know.
/// @param _wait for their answers.
/// @return no value when there was nothing to do, or somebody else is changing the list.
std::optional<SweptList> sweepList(const ClassListPlace& _place, std::chrono::milliseconds _wait);

/// What every command does before its own work, as far as it may: no word, and no wait for answers.
void sweepInPassing();

}  // namespace qmrkctl
