// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// A Windows error code; on Linux the errno is translated (EEXIST 183, ENOENT 3, EACCES, EPERM and EROFS 5, ENOSPC 112,
/// ENAMETOOLONG 206, any other errno as it is).
using ErrorCode = std::uint32_t;

constexpr ErrorCode noError = 0;
constexpr ErrorCode errorFileNotFound = 2;
constexpr ErrorCode errorPathNotFound = 3;
constexpr ErrorCode errorAccessDenied = 5;
constexpr ErrorCode errorInvalidHandle = 6;
constexpr ErrorCode errorDiskFull = 112;
constexpr ErrorCode errorInvalidName = 123;
constexpr ErrorCode errorAlreadyExists = 183;
constexpr ErrorCode errorFilenameTooLong = 206;

}  // namespace platform
