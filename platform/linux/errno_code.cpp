// SPDX-License-Identifier: MIT
#include "platform/linux/errno_code.h"

#include <cerrno>

namespace platform {

ErrorCode errnoCode(int _errno) {
  switch (_errno) {
    case EEXIST:
      return errorAlreadyExists;
    case ENOENT:
      return errorPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return errorAccessDenied;
    case ENOSPC:
      return errorDiskFull;
    case ENAMETOOLONG:
      return errorFilenameTooLong;
    default:
      return static_cast<ErrorCode>(_errno);
  }
}

}  // namespace platform
