// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/qmrkctl/configuration.h"

namespace qmrkctl {

/// A file that was probably meant to be a missing one: of the same name in the other folder of the configuration, else
/// in the same folder with another ending, as editors and copies have it. Without regard to letter case.
/// @param _path of the missing file, in the library's form.
/// @return its path in the library's form; empty: there is none.
std::string misplacedFile(const Viewpoint& _viewpoint, const Configuration& _configuration, const std::string& _path);

}  // namespace qmrkctl
