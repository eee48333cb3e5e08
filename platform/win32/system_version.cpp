// SPDX-License-Identifier: MIT
#include "platform/system_version.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {

bool queryVersion(VersionQuery _query, VersionBlock& _block) {
  if (injectedFault(Call::systemVersion) != noError) return false;
  const bool extended = _query == VersionQuery::extended;
  OSVERSIONINFOEXA info{};
  info.dwOSVersionInfoSize = extended ? sizeof(OSVERSIONINFOEXA) : sizeof(OSVERSIONINFOA);
  if (!::GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&info))) return false;
  _block = {info.dwMajorVersion,
            info.dwMinorVersion,
            info.dwBuildNumber,
            info.dwPlatformId,
            info.szCSDVersion,
            extended ? info.wSuiteMask : std::uint16_t{0},
            extended ? info.wProductType : std::uint8_t{0}};
  return true;
}

bool registryKeyExists(const std::string& _key) {
  if (injectedFault(Call::registry) != noError) return false;
  HKEY key = nullptr;
  if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, _key.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) return false;
  ::RegCloseKey(key);
  return true;
}

RegistryResult readRegistryText(const std::string& _key, const std::string& _value, std::string& _text) {
  if (injectedFault(Call::registry) != noError) return RegistryResult::noKey;
  HKEY key = nullptr;
  if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, _key.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
    return RegistryResult::noKey;
  }
  char buffer[256] = {};
  DWORD size = sizeof buffer;
  const LONG result = ::RegQueryValueExA(key, _value.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(buffer), &size);
  // The key is required to stay open after a failed read.
  if (result != ERROR_SUCCESS || size > sizeof buffer) return RegistryResult::noValue;
  ::RegCloseKey(key);
  // A value need not end in a NUL.
  _text = std::string(buffer, size).c_str();
  return RegistryResult::done;
}

}  // namespace platform
