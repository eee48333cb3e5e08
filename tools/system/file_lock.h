// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "tools/system/replaced_file.h"

namespace toolsystem {

/// A lock file that one process at a time holds, at most until it ends. The file stays, so that nobody locks one that
/// is just being removed. Whoever may write to its folder may lock it; if root creates it, it gets the folder's owner.
class FileLock {
 public:
  /// Waits for the lock at most that long, or until an end request (end_request.h).
  /// @param _path with separators of either kind.
  FileLock(const std::string& _path, std::chrono::milliseconds _longest);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  bool isHeld() const { return isHeld_; }

  /// Why the file could not be opened; no value if the lock is held, by this object or by somebody else.
  const std::optional<FileFailure>& failure() const { return failure_; }

 private:
  long long file_ = -1;
  bool isHeld_ = false;
  std::optional<FileFailure> failure_;
};

}  // namespace toolsystem
