// SPDX-License-Identifier: MIT
#pragma once

#include "platform/errors.h"

namespace platform {

/// The Windows error code of an errno value, by the table of errors.h; 0 gives noError.
ErrorCode errnoCode(int _errno);

}  // namespace platform
