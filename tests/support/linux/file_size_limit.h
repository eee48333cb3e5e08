// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

namespace testsupport {

/// While it lives, no file may grow beyond the limit through this process (RLIMIT_FSIZE, as ulimit -f sets it), nor
/// through the children that it starts.
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
