// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace platform {

/// Creates the queue in which the writers of a file wait for its lock: a mutex that the processes of a session share. A
/// lock on a file can only be polled, so that among many writers some would never get it.
/// @param _name identifies the file.
/// @return to be closed by CloseHandle; null when the system refuses: the lock is then taken without a queue.
HANDLE makeAppendQueue(const std::string& _name);

/// Holds an exclusive lock on an open file against every other handle that takes it too, in any process. It covers one
/// byte far beyond the end, so it hinders no reads or writes. The system drops it when a process dies. Waits for it at
/// most 50 ms, including the queue: whoever does not get it goes on without it, since an append is atomic on Windows
/// itself, though not under Wine.
class AppendLock {
 public:
  /// @param _file open for reading or writing; must stay open while the object lives, like the queue.
  /// @param _queue from makeAppendQueue; may be null.
  AppendLock(HANDLE _file, HANDLE _queue);
  ~AppendLock();
  AppendLock(const AppendLock&) = delete;
  AppendLock& operator=(const AppendLock&) = delete;

 private:
  HANDLE file_;
  HANDLE queue_;
  bool isFirst_;
  bool locked_;
};

}  // namespace platform
