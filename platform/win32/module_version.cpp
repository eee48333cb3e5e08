// SPDX-License-Identifier: MIT
#include "platform/module_version.h"

#include <cstdlib>

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {
namespace {

// Reads the block into a buffer of that size.
bool readFixedVersion(const char* _module, void* _buffer, DWORD _size, FixedVersion& _version) {
  if (!::GetFileVersionInfoA(_module, 0, _size, _buffer)) return false;
  void* block = nullptr;
  UINT length = 0;
  if (!::VerQueryValueA(_buffer, "\\", &block, &length) || length < sizeof(VS_FIXEDFILEINFO)) return false;
  const auto* const info = static_cast<const VS_FIXEDFILEINFO*>(block);
  _version = {info->dwFileVersionMS, info->dwFileVersionLS, info->dwProductVersionMS, info->dwProductVersionLS};
  return true;
}

}  // namespace

bool readModuleVersion(const char* _module, FixedVersion& _version) {
  if (injectedFault(Call::moduleVersion) != noError) return false;
  const HMODULE module = ::LoadLibraryExA(_module, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  if (module == nullptr) return false;
  // From here on a failure is required to leave the module loaded.
  DWORD ignored = 0;
  const DWORD size = ::GetFileVersionInfoSizeA(_module, &ignored);
  void* const buffer = size != 0 ? std::malloc(size) : nullptr;
  if (buffer == nullptr) return false;
  const bool read = readFixedVersion(_module, buffer, size, _version);
  std::free(buffer);
  if (read) ::FreeLibrary(module);
  return read;
}

}  // namespace platform
