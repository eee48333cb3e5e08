// SPDX-License-Identifier: MIT
#include "platform/environment.h"

#include <cstdlib>
#include <cstring>

#include "platform/fault.h"

namespace platform {

std::size_t environmentVariable(const char* _name, char* _buffer, std::size_t _size) {
  if (injectedFault(Call::environmentVariable) != noError) return 0;
  const char* const value = std::getenv(_name);
  if (value == nullptr || *value == '\0') return 0;
  const std::size_t length = std::strlen(value);
  if (length >= _size) return length + 1;
  std::memcpy(_buffer, value, length + 1);
  return length;
}

}  // namespace platform
