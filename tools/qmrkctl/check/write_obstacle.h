// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

/// What keeps a user from writing, for the text of a finding.
struct WriteObstacle {
  std::string cause;  ///< follows what the user may not do; empty: the rights of the file or folder itself
  std::string fix;    ///< empty: to give it to the user is enough
};

/// @param _path an existing file or folder, in the library's form, that the viewpoint's user may not write, or in which
///   that user may not create files.
WriteObstacle writeObstacle(const Viewpoint& _viewpoint, const std::string& _path);

}  // namespace qmrkctl
