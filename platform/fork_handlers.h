// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// Registers functions that are called around every fork of the process, on the forking thread (pthread_atfork): before
/// it, and after it in the parent and in the child, where no other thread exists. Does nothing on Windows, which cannot
/// fork. The functions of a library are forgotten when it is unloaded.
void registerForkHandlers(void (*_before)(), void (*_inParent)(), void (*_inChild)());

}  // namespace platform
