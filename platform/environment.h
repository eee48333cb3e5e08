// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace platform {

/// GetEnvironmentVariableA: copies the value of a variable with its final NUL into a buffer.
/// @param _size size of the buffer in bytes.
/// @return 0 when the variable is unset or empty; the length of the value when it fits; else the size needed, with the
///   buffer untouched.
std::size_t environmentVariable(const char* _name, char* _buffer, std::size_t _size);

}  // namespace platform
