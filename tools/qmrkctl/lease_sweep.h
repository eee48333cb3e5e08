// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/acknowledgement.h"
#include "tools/qmrkctl/class_list_file.h"

namespace qmrkctl {

/// The viewpoint's class lists that have a file of leases, in the order of their CAs.
std::vector<ClassListPlace> listsWithLeases(const Viewpoint& _viewpoint);

/// What a sweep did with one list.
struct SweptList {
  ClassListPlace place;
  std::vector<std::string> ended;  ///< the classes switched off
  Acknowledgement acknowledgement;
  std::optional<toolsystem::FileFailure> failure;
};

/// Ends the expired leases of a list and makes its applications apply it. Records that in the history.
/// @param _wait how long to wait for their answers; if 0, the history has none.
/// @return no value if there was nothing to do, the list cannot be read, or somebody else is changing it.
std::optional<SweptList> sweepList(const ClassListPlace& _place, std::chrono::milliseconds _wait);

/// The sweep that every command makes first, as far as its rights go. Prints nothing, waits for nobody, never fails.
void sweepInPassing();

}  // namespace qmrkctl
