// SPDX-License-Identifier: MIT
#include "tools/system/replaced_file.h"

#include <array>
#include <cstdint>

#include "platform/win32/windows_api.h"

namespace toolsystem {
namespace {

// A reader that has the file open at this moment is waited for.
constexpr int mostTries = 200;
constexpr DWORD betweenTries = 10;
constexpr char newSuffix[] = ".new";

FileFailure failureOf(const std::string& _what, DWORD _error) {
  return {_what + " (error " + std::to_string(_error) + ")", _error == ERROR_ACCESS_DENIED,
          _error == ERROR_FILE_NOT_FOUND || _error == ERROR_PATH_NOT_FOUND};
}

DWORD writeNew(const std::string& _path, const std::string& _bytes) {
  const HANDLE file =
      ::CreateFileA(_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return ::GetLastError();
  DWORD written = 0;
  const bool isDone = ::WriteFile(file, _bytes.data(), static_cast<DWORD>(_bytes.size()), &written, nullptr) != 0 &&
                      written == _bytes.size() && ::FlushFileBuffers(file) != 0;
  const DWORD error = isDone ? 0 : ::GetLastError();
  ::CloseHandle(file);
  return isDone ? 0 : (error != 0 ? error : ERROR_DISK_FULL);
}

// What programs that were killed have left: the new files of one name are never written by two at a time.
void removeAbandoned(const std::string& _path) {
  const std::string folder = _path.substr(0, _path.find_last_of("\\/") + 1);
  WIN32_FIND_DATAA found{};
  const HANDLE search = ::FindFirstFileA((_path + ".*" + newSuffix).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    ::DeleteFileA((folder + found.cFileName).c_str());
  } while (::FindNextFileA(search, &found) != 0);
  ::FindClose(search);
}

// ReplaceFile keeps the rights of the former file, but needs one.
DWORD takeName(const std::string& _from, const std::string& _to) {
  DWORD error = 0;
  for (int tries = 0; tries < mostTries; ++tries) {
    if (tries > 0) ::Sleep(betweenTries);
    const bool isThere = ::GetFileAttributesA(_to.c_str()) != INVALID_FILE_ATTRIBUTES;
    const BOOL done =
        isThere ? ::ReplaceFileA(_to.c_str(), _from.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)
                : ::MoveFileExA(_from.c_str(), _to.c_str(), MOVEFILE_WRITE_THROUGH);
    if (done != 0) return 0;
    error = ::GetLastError();
    if (error != ERROR_SHARING_VIOLATION && error != ERROR_LOCK_VIOLATION && error != ERROR_USER_MAPPED_FILE) break;
  }
  return error;
}

}  // namespace

std::optional<FileFailure> replaceFile(const std::string& _path, const std::string& _bytes) {
  const std::string fresh = _path + "." + std::to_string(::GetCurrentProcessId()) + newSuffix;
  removeAbandoned(_path);
  DWORD error = writeNew(fresh, _bytes);
  if (error == 0) error = takeName(fresh, _path);
  if (error == 0) return std::nullopt;
  ::DeleteFileA(fresh.c_str());
  return failureOf("cannot replace " + _path, error);
}

}  // namespace toolsystem
