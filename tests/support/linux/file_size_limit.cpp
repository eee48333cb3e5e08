// SPDX-License-Identifier: MIT
#include "tests/support/linux/file_size_limit.h"

#include <cstdlib>

namespace testsupport {

FileSizeLimit::FileSizeLimit(rlim_t _bytes) : former_() {
  if (::getrlimit(RLIMIT_FSIZE, &former_) != 0) std::abort();
  const rlimit limited{_bytes, former_.rlim_max};
  if (::setrlimit(RLIMIT_FSIZE, &limited) != 0) std::abort();
}

FileSizeLimit::~FileSizeLimit() {
  if (::setrlimit(RLIMIT_FSIZE, &former_) != 0) std::abort();
}

}  // namespace testsupport
