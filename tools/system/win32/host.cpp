// SPDX-License-Identifier: MIT
#include "tools/system/host.h"

#include <array>
#include <system_error>

#include "platform/win32/windows_api.h"

namespace toolsystem {

std::string hostName() {
  std::array<char, 256> name{};
  DWORD size = static_cast<DWORD>(name.size());
  return ::GetComputerNameExA(ComputerNameDnsHostname, name.data(), &size) != 0 ? std::string(name.data(), size) : "";
}

std::string errorText(int _errno) { return std::generic_category().message(_errno); }

}  // namespace toolsystem
