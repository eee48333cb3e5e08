// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// The path by which this program reaches what a process with another root sees at a path. A link there that begins
/// with "/" counts from that root, whereas the system would follow it from this program's own; so links are followed
/// here, the last one too.
/// @param _root such as "/proc/4711/root"; empty for this program's own, which needs nothing of that.
/// @param _path in the system's form, absolute.
std::string pathInRoot(const std::string& _root, const std::string& _path);

}  // namespace toolsystem
