// SPDX-License-Identifier: MIT
#include "platform/shell_folder.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"
// After windows_api.h, on whose types it relies.
#include <shlobj.h>

namespace platform {
namespace {

int folderId(ShellFolder _folder) {
  switch (_folder) {
    case ShellFolder::userAppData:
      return CSIDL_APPDATA;
    case ShellFolder::commonProgramFiles:
      return CSIDL_PROGRAM_FILES_COMMON;
    case ShellFolder::commonAppData:
      return CSIDL_COMMON_APPDATA;
  }
  return -1;
}

}  // namespace

bool shellFolder(ShellFolder _folder, std::string& _path) {
  if (injectedFault(Call::shellFolder) != noError) return false;
  char path[MAX_PATH] = {};
  if (::SHGetFolderPathA(nullptr, folderId(_folder), nullptr, 0, path) < 0) return false;
  _path = path;
  return true;
}

}  // namespace platform
