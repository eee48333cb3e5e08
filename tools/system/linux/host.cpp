// SPDX-License-Identifier: MIT
#include "tools/system/host.h"

#include <unistd.h>

#include <array>
#include <system_error>

namespace toolsystem {

std::string hostName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string errorText(int _errno) { return std::generic_category().message(_errno); }

}  // namespace toolsystem
