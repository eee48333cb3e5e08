// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace testsupport {

/// The file that the library means by a path of either separator. On Windows its narrow strings are in the process code
/// page, while std::filesystem takes them for UTF-8.
std::filesystem::path systemPath(const std::string& _path);

/// The other way round.
std::string pathText(const std::filesystem::path& _path);

/// Removes a file, or a folder with its content, so that the name is free at once: on Windows also when the file is
/// still open, provided that its sharing allows it to be removed. Nothing happens when there is no such name.
/// @return whether the name is free now.
bool removeAtOnce(const std::filesystem::path& _path);

}  // namespace testsupport
