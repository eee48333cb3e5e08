// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows_api.h"

namespace platform {

/// Holds an exclusive lock on an open file against every other handle that takes it too, in any process. It covers one
/// byte far beyond the end, so that nobody's reads or writes are hindered. The system drops it when a process dies. It
/// is waited for at most 50 ms: whoever does not get it goes on without it, since on Windows itself an append is
/// atomic; only under Wine it is not.
class AppendLock {
 public:
  /// @param _file open for reading; must stay open while the object lives.
  explicit AppendLock(HANDLE _file);
  ~AppendLock();
  AppendLock(const AppendLock&) = delete;
  AppendLock& operator=(const AppendLock&) = delete;

 private:
  HANDLE file_;
  bool locked_;
};

}  // namespace platform
