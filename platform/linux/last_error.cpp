// SPDX-License-Identifier: MIT
#include "platform/handle.h"

namespace platform {
namespace {

constinit thread_local ErrorCode latestError = noError;

}  // namespace

ErrorCode lastError() noexcept { return latestError; }

void setLastError(ErrorCode _error) noexcept { latestError = _error; }

}  // namespace platform
