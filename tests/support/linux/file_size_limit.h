// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

namespace testsupport {

/// While it lives, neither this process nor the children that it starts can make a file grow beyond the limit
/// (RLIMIT_FSIZE, which ulimit -f sets).
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t _bytes);
  ~FileSizeLimit();
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit former_;
};

}  // namespace testsupport
