// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// The path by which this program reaches what a process with another root sees at a path. Resolves all links, the last
/// one included: an absolute link counts from the other root, but the system would follow it from this program's.
/// @param _root such as "/proc/4711/root"; empty for this program's own: the path is then returned unchanged.
/// @param _path in the system's form, absolute.
std::string pathInRoot(const std::string& _root, const std::string& _path);

}  // namespace toolsystem
