// SPDX-License-Identifier: MIT
#include "platform/win32/append_lock.h"

namespace platform {
namespace {

constexpr ULONGLONG LONGEST_WAIT_MS = 50;
// The holder needs some microseconds; who finds the lock taken more often than this sleeps between the attempts.
constexpr int ATTEMPTS_WITHOUT_SLEEP = 64;

OVERLAPPED lockedByte() {
  OVERLAPPED position{};
  position.OffsetHigh = 0x7FFFFFFF;
  return position;
}

bool tryLock(HANDLE _file) {
  OVERLAPPED position = lockedByte();
  return ::LockFileEx(_file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &position) != 0;
}

bool lockWithinLimit(HANDLE _file) {
  if (tryLock(_file)) return true;
  const ULONGLONG begin = ::GetTickCount64();
  for (int attempt = 1; ::GetLastError() == ERROR_LOCK_VIOLATION; ++attempt) {
    if (::GetTickCount64() - begin >= LONGEST_WAIT_MS) return false;
    ::Sleep(attempt < ATTEMPTS_WITHOUT_SLEEP ? 0 : 1);
    if (tryLock(_file)) return true;
  }
  return false;
}

}  // namespace

AppendLock::AppendLock(HANDLE _file) : file_(_file), locked_(lockWithinLimit(_file)) {}

AppendLock::~AppendLock() {
  if (!locked_) return;
  OVERLAPPED position = lockedByte();
  ::UnlockFileEx(file_, 0, 1, 0, &position);
}

}  // namespace platform
