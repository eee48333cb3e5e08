// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/qmrkctl/common_options.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

struct ViewpointChoice {
  std::vector<Viewpoint> viewpoints;
  std::string problem;  ///< why there is none, in words; empty otherwise
};

/// The viewpoints that the options name: the current user, another user, a process, or every user of the machine and
/// every process that has the library.
ViewpointChoice viewpointsOf(const Options& _options);

}  // namespace qmrkctl
