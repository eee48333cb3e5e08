// SPDX-License-Identifier: MIT
#include "tools/system/file_lock.h"

#include "platform/win32/windows_api.h"
#include "tools/system/end_request.h"

namespace toolsystem {
namespace {

constexpr std::chrono::milliseconds lockPause(10);

}  // namespace

// Who has the file open has the lock: it is shared with nobody.
FileLock::FileLock(const std::string& _path, std::chrono::milliseconds _longest) {
  const auto end = std::chrono::steady_clock::now() + _longest;
  for (;;) {
    const HANDLE file = ::CreateFileA(_path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    isHeld_ = file != INVALID_HANDLE_VALUE;
    if (isHeld_) file_ = reinterpret_cast<long long>(file);
    const DWORD error = isHeld_ ? 0 : ::GetLastError();
    if (isHeld_) return;
    if (error != ERROR_SHARING_VIOLATION) {
      failure_ = FileFailure{"cannot lock " + _path + " (error " + std::to_string(error) + ")",
                             error == ERROR_ACCESS_DENIED, error == ERROR_PATH_NOT_FOUND};
      return;
    }
    if (std::chrono::steady_clock::now() >= end || !sleepUnlessEnded(lockPause)) return;
  }
}

FileLock::~FileLock() {
  if (isHeld_) ::CloseHandle(reinterpret_cast<HANDLE>(file_));
}

}  // namespace toolsystem
