// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace stress {

/// A folder whose files have 64 KiB in all: a small file system where this process may mount one (as root, or in a user
/// namespace of its own); otherwise each file of this process has so much (RLIMIT_FSIZE, with the same errors but for
/// their number).
class ScarceSpace {
 public:
  static constexpr long bytes = 64L * 1024;

  /// @param _folder native path; created. The mount ends with the process.
  explicit ScarceSpace(const std::string& _folder);

  /// Makes room for further bytes; the writing process calls it.
  void makeRoom() const;

  /// Makes the space scarce again.
  void fill() const;

  const char* kind() const { return isMounted_ ? "file system of 64 KiB" : "file size limit of 64 KiB"; }

 private:
  std::string filler() const { return folder_ + "/filler"; }

  std::string folder_;
  bool isMounted_;
};

}  // namespace stress
