// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/qmrkctl/common_options.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

struct ViewpointChoice {
  std::vector<Viewpoint> viewpoints;
  std::string problem;  ///< why there is none, a sentence; empty otherwise
};

/// With whose eyes the options ask to look: those of the running user, of another one, of a process, or of every user
/// of the machine and every process that has the library.
ViewpointChoice viewpointsOf(const Options& _options);

}  // namespace qmrkctl
