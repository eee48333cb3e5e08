// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The modes of the C run-time's _access.
enum class Access : int { exists = 0, write = 2, read = 4, readWrite = 6 };

/// _access: whether the file or folder exists and the running user (on Linux the effective one) may use it that way.
bool isAccessible(const std::string& _path, Access _mode);

/// _stat64i32: the mode word of a file or folder.
/// @param _mode receives the word; untouched on failure.
bool statusMode(const std::string& _path, unsigned int& _mode);

}  // namespace platform
