// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

/// Whether a process has more rights than whoever started it, so that secure_getenv finds no variable in it; false if
/// the caller may not look.
bool isSecureProcess(int _pid);

}  // namespace toolsystem
