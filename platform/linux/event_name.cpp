// SPDX-License-Identifier: MIT
#include "platform/linux/event_name.h"

#include <algorithm>
#include <cstddef>

namespace platform {
namespace {

constexpr std::size_t longestName = 200;

// Not isalnum, which asks the locale.
bool isAllowed(char _character) {
  return (_character >= 'a' && _character <= 'z') || (_character >= 'A' && _character <= 'Z') ||
         (_character >= '0' && _character <= '9') || _character == '.' || _character == '_' || _character == '-';
}

}  // namespace

ErrorCode checkEventName(const std::string& _name) {
  if (_name.empty() || _name.front() == '.' || !std::all_of(_name.begin(), _name.end(), isAllowed)) {
    return errorInvalidName;
  }
  return _name.size() <= longestName ? noError : errorFilenameTooLong;
}

}  // namespace platform
