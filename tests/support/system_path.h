// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace testsupport {

/// A path of the library, with either separator, for std::filesystem. On Windows the library's strings are in the
/// process code page, but std::filesystem would take them for UTF-8.
std::filesystem::path systemPath(const std::string& _path);

/// The reverse.
std::string pathText(const std::filesystem::path& _path);

/// Removes a file, or a folder with its content, and frees the name at once: on Windows even if the file is still open,
/// provided that its sharing mode allows the removal. Does nothing if there is no such name.
/// @return whether the name is free now.
bool removeAtOnce(const std::filesystem::path& _path);

}  // namespace testsupport
