// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// Gives this process and its later children an empty /dev/shm of their own, over the one before.
/// @param _limits options of tmpfs, such as "size=4k" or "nr_inodes=1"; empty for none.
void mountSharedMemory(const std::string& _limits);

/// Unmounts the latest one.
void unmountSharedMemory();

}  // namespace testsupport
