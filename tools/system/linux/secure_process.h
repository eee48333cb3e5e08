// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

/// Whether a process has more rights than its caller had, so that secure_getenv finds no variable in it; false where
/// the caller may not look.
bool isSecureProcess(int _pid);

}  // namespace toolsystem
