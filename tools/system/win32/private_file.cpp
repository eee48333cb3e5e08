// SPDX-License-Identifier: MIT
#include "tools/system/private_file.h"

#include <cerrno>

#include "platform/win32/windows_api.h"

namespace toolsystem {
namespace {

int privateErrnoOf(DWORD _error) {
  switch (_error) {
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_ACCESS_DENIED:
      return EACCES;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return ENOENT;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    default:
      return EIO;
  }
}

DWORD writeBegun(const std::string& _path, std::string_view _bytes) {
  // Files of a user are his own by the rights of the folder.
  const HANDLE file =
      ::CreateFileA(_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return ::GetLastError();
  DWORD written = 0;
  DWORD error = ERROR_SUCCESS;
  if (::WriteFile(file, _bytes.data(), static_cast<DWORD>(_bytes.size()), &written, nullptr) == 0 ||
      ::FlushFileBuffers(file) == 0) {
    error = ::GetLastError();
  }
  ::CloseHandle(file);
  return error == ERROR_SUCCESS && written != _bytes.size() ? ERROR_DISK_FULL : error;
}

}  // namespace

int writePrivateFile(const std::string& _path, std::string_view _bytes) {
  if (::GetFileAttributesA(_path.c_str()) != INVALID_FILE_ATTRIBUTES) return EEXIST;
  const std::string begun = _path + "." + std::to_string(::GetCurrentProcessId());
  DWORD error = writeBegun(begun, _bytes);
  if (error == ERROR_SUCCESS && ::MoveFileExA(begun.c_str(), _path.c_str(), 0) == 0) error = ::GetLastError();
  if (error == ERROR_SUCCESS) return 0;
  if (error != ERROR_FILE_EXISTS) ::DeleteFileA(begun.c_str());
  return privateErrnoOf(error);
}

}  // namespace toolsystem
