// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace platform {

/// Finds out anew whether the process has a file size limit (RLIMIT_FSIZE). Called when a file is opened and now and
/// then later, because asking before each write would cost a system call.
void refreshFileSizeLimit();

/// write(2), repeated only when a signal interrupted it before it wrote anything. Where the process has a file size
/// limit, a write beyond it fails with EFBIG and the signal SIGXFSZ does not reach the application; the system calls
/// for that are made only then.
/// @return the bytes written, or -1 with errno set.
ssize_t writeToFile(int _file, const char* _data, std::size_t _size);

}  // namespace platform
