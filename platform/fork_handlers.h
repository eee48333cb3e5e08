// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// Has functions called around every fork of the process, on the forking thread (pthread_atfork): before it, and after
/// it in the parent and in the child, where no other thread exists. Without effect on Windows, which cannot fork.
/// Those that a library registered are forgotten when it is unloaded.
void registerForkHandlers(void (*_before)(), void (*_inParent)(), void (*_inChild)());

}  // namespace platform
