// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace platform {

/// Asks again whether the process has a file size limit (RLIMIT_FSIZE). Called when a file is opened and occasionally
/// later, because asking before each write would cost a system call. If nobody handles the signal SIGXFSZ, which would
/// end the process, sets a handler that ignores it for writeToFile and ends the process for any other write, as before.
void refreshFileSizeLimit();

/// write(2), repeated only when a signal interrupted it before it wrote anything. A write beyond the file size limit
/// fails with EFBIG and does not end the process, even if the limit was set a moment ago. Once the limit is known, a
/// handler of the application's own is not called; only then does this cost further system calls.
/// @return the bytes written, or -1 with errno set.
ssize_t writeToFile(int _file, const char* _data, std::size_t _size);

}  // namespace platform
