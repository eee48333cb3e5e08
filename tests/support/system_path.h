// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace testsupport {

/// The file to which a path of the library with either separator leads. On Windows its narrow strings are in the
/// process code page, while std::filesystem takes them for UTF-8.
std::filesystem::path systemPath(const std::string& _path);

/// The reverse.
std::string pathText(const std::filesystem::path& _path);

/// Removes a file, or a folder with its content, so that the name is free at once: on Windows even if the file is still
/// open, provided that its sharing allows the removal. Does nothing when there is no such name.
/// @return whether the name is free now.
bool removeAtOnce(const std::filesystem::path& _path);

}  // namespace testsupport
