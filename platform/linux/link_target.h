// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// Where a symbolic link leads to in the end: a path, in the system's form, without further links behind the folder of
/// this one. Every link on the way, also one in place of a folder, must lie in a folder that belongs to the user or to
/// root and in which nobody else may write: others could lead a link of theirs wherever they want.
/// @return empty when a link is not to be followed (errno is EACCES) or the way ends before the last name (errno says
///   why). What the last name stands for need not exist.
std::string targetOfTrustedLink(const std::string& _nativePath);

}  // namespace platform
