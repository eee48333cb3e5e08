// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace toolsystem {

/// Creates a file that only the user may read and write (mode 0600). Writes it under another name in the same folder,
/// and renames it when it is complete; on failure removes it.
/// @param _path in the system's form. Nothing is ever replaced.
/// @return 0, or an errno value: EEXIST if something is at the path.
int writePrivateFile(const std::string& _path, std::string_view _bytes);

}  // namespace toolsystem
