// SPDX-License-Identifier: MIT
#include "platform/win32/append_lock.h"

namespace platform {
namespace {

constexpr DWORD longestWaitMs = 50;
OVERLAPPED lockedByte() {
  OVERLAPPED position{};
  position.OffsetHigh = 0x7FFFFFFF;
  return position;
}

bool tryLock(HANDLE _file) {
  OVERLAPPED position = lockedByte();
  return ::LockFileEx(_file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &position) != 0;
}

// Whether this writer is the first in the queue now, which it then has to leave.
bool standInQueue(HANDLE _queue) {
  if (_queue == nullptr) return false;
  const DWORD result = ::WaitForSingleObject(_queue, longestWaitMs);
  // The one before may have died.
  return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

bool lockUntil(HANDLE _file, ULONGLONG _end) {
  if (tryLock(_file)) return true;
  while (::GetLastError() == ERROR_LOCK_VIOLATION) {
    if (::GetTickCount64() >= _end) return false;
    ::Sleep(0);
    if (tryLock(_file)) return true;
  }
  return false;
}

}  // namespace

HANDLE makeAppendQueue(const std::string& _name) { return ::CreateMutexA(nullptr, FALSE, _name.c_str()); }

AppendLock::AppendLock(HANDLE _file, HANDLE _queue) : file_(_file), queue_(_queue) {
  const ULONGLONG end = ::GetTickCount64() + longestWaitMs;
  isFirst_ = standInQueue(_queue);
  locked_ = lockUntil(_file, end);
}

AppendLock::~AppendLock() {
  if (locked_) {
    OVERLAPPED position = lockedByte();
    ::UnlockFileEx(file_, 0, 1, 0, &position);
  }
  if (isFirst_) ::ReleaseMutex(queue_);
}

}  // namespace platform
