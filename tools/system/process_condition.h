// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

/// Unusual conditions of a running process.
struct ProcessCondition {
  /// It has variables that move folders, but the library ignores them because the process has more rights than whoever
  /// started it (set-user-id, capabilities). Always false on Windows.
  bool ignoresEnvironment = false;
  /// The library's file was removed or replaced since the process loaded it, which Windows does not allow.
  bool hasFormerLibrary = false;
};

/// The conditions of a process; none if the caller may not look.
ProcessCondition conditionOfProcess(int _pid);

}  // namespace toolsystem
