// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/errors.h"

namespace platform {

/// Whether a text may name an event: 1 to 200 letters, digits, ".", "_" and "-", not beginning with ".". So a name is
/// always one plain file name.
/// @return noError; errorInvalidName, or errorFilenameTooLong when only the length is wrong.
ErrorCode checkEventName(const std::string& _name);

}  // namespace platform
