// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// Mounts an empty /dev/shm over the former one, for this process and its later children only.
/// @param _limits options of tmpfs, such as "size=4k" or "nr_inodes=1"; empty for none.
void mountSharedMemory(const std::string& _limits);

/// Unmounts the latest of these.
void unmountSharedMemory();

}  // namespace testsupport
