// SPDX-License-Identifier: MIT
#pragma once

#include "platform/errors.h"

namespace platform {

/// GetLastError, for a call that is known to have failed.
ErrorCode lastErrorCode();

}  // namespace platform
