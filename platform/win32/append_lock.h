// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace platform {

/// Makes the queue in which the writers of a file stand for its lock: a mutex that the processes of a session share. A
/// lock on a file can only be asked for again and again, so that of many writers some would never get it.
/// @param _name identifies the file.
/// @return to be closed by CloseHandle; null when the system refuses, then the lock is taken without a queue.
HANDLE makeAppendQueue(const std::string& _name);

/// Holds an exclusive lock on an open file against every other handle that takes it too, in any process. It covers one
/// byte far beyond the end, so that nobody's reads or writes are hindered. The system drops it when a process dies. It
/// is waited for at most 50 ms, the queue included: whoever does not get it goes on without it, since on Windows itself
/// an append is atomic; only under Wine it is not.
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
