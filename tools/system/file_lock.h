// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "tools/system/replaced_file.h"

namespace toolsystem {

/// A lock that one process at a time holds, on a file made for it; it ends with the process. The file stays, so that
/// nobody locks one that is just being removed; it belongs to the owner of its folder, and whoever may write there may
/// lock it.
class FileLock {
 public:
  /// Waits at most that long.
  FileLock(const std::string& _path, std::chrono::milliseconds _longest);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  bool isHeld() const { return isHeld_; }

  /// Why the file could not be made; no value: somebody else holds the lock.
  const std::optional<FileFailure>& failure() const { return failure_; }

 private:
  long long file_ = -1;
  bool isHeld_ = false;
  std::optional<FileFailure> failure_;
};

}  // namespace toolsystem
