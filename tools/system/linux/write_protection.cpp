// SPDX-License-Identifier: MIT
#include "tools/system/write_protection.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace toolsystem {

WriteProtection writeProtectionOf(const std::string& _path) {
  struct statvfs fileSystem {};
  if (::statvfs(_path.c_str(), &fileSystem) == 0 && (fileSystem.f_flag & ST_RDONLY) != 0)
    return WriteProtection::fileSystem;
  struct statx status {};
  const bool isKnown = ::statx(AT_FDCWD, _path.c_str(), 0, STATX_TYPE, &status) == 0;
  return isKnown && (status.stx_attributes & STATX_ATTR_IMMUTABLE) != 0 ? WriteProtection::attribute
                                                                        : WriteProtection::none;
}

std::string_view attributeRemoval() { return "sudo chattr -i"; }

}  // namespace toolsystem
