// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace toolsystem {

/// Makes a file that only the user may read and write (mode 0600). It has its name when it is whole; until then it has
/// another one in the same folder, which is removed on failure.
/// @param _path in the system's form. Nothing may be there; nothing is ever replaced.
/// @return 0, or a number of errno: EEXIST when something is there.
int writePrivateFile(const std::string& _path, std::string_view _bytes);

}  // namespace toolsystem
