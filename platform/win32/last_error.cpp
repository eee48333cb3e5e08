// SPDX-License-Identifier: MIT
#include "platform/win32/last_error.h"

#include "platform/win32/windows_api.h"

namespace platform {

static_assert(noError == ERROR_SUCCESS);
static_assert(errorPathNotFound == ERROR_PATH_NOT_FOUND);
static_assert(errorAccessDenied == ERROR_ACCESS_DENIED);
static_assert(errorInvalidHandle == ERROR_INVALID_HANDLE);
static_assert(errorDiskFull == ERROR_DISK_FULL);
static_assert(errorAlreadyExists == ERROR_ALREADY_EXISTS);
static_assert(errorFilenameTooLong == ERROR_FILENAME_EXCED_RANGE);

ErrorCode lastErrorCode() { return ::GetLastError(); }

}  // namespace platform
