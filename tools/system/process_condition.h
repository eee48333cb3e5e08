// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

/// What is special about a running process.
struct ProcessCondition {
  /// It has more rights than its caller had (set-user-id, capabilities), so that the library does not trust the
  /// variables that move folders, of which it has some. Always false on Windows.
  bool ignoresEnvironment = false;
  /// The file of the library was removed or replaced since the process loaded it. Always false on Windows, which lets
  /// nobody do that.
  bool hasFormerLibrary = false;
};

/// Nothing special where the caller may not look.
ProcessCondition conditionOfProcess(int _pid);

}  // namespace toolsystem
