// SPDX-License-Identifier: MIT
#include "platform/environment.h"
#include "quillmark_logging.h"

namespace Quillmark_logging {

bool getEnvironmentVariable(const std::string& _name, std::string& _value) {
  char buffer[256] = {};
  // The length is required not to be compared with the buffer: a value that does not fit leaves the buffer empty.
  if (platform::environmentVariable(_name.c_str(), buffer, sizeof buffer) == 0) return false;
  _value = buffer;
  return true;
}

}  // namespace Quillmark_logging
