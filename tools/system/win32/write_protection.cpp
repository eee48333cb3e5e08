// SPDX-License-Identifier: MIT
#include "tools/system/write_protection.h"

#include "platform/win32/windows_api.h"

namespace toolsystem {

// Of a folder, the attribute forbids nothing.
WriteProtection writeProtectionOf(const std::string& _path) {
  const DWORD attributes = ::GetFileAttributesA(_path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
    return WriteProtection::none;
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? WriteProtection::attribute : WriteProtection::none;
}

std::string_view attributeRemoval() { return "attrib -R"; }

}  // namespace toolsystem
