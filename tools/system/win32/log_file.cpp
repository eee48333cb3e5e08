// SPDX-License-Identifier: MIT
#include "tools/system/log_file.h"

#include <utility>

#include "platform/native_path.h"
#include "platform/win32/windows_api.h"

namespace toolsystem {
namespace {

/// Open while it lives.
class OpenHandle {
 public:
  OpenHandle(const std::string& _path, DWORD _access)
      : handle_(::CreateFileA(platform::nativePath(_path).c_str(), _access,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
  ~OpenHandle() {
    if (isOpen()) ::CloseHandle(handle_);
  }
  OpenHandle(const OpenHandle&) = delete;
  OpenHandle& operator=(const OpenHandle&) = delete;

  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

std::uint64_t joined(DWORD _high, DWORD _low) { return (std::uint64_t{_high} << 32U) | _low; }

// Of a regular file; none of anything else.
FileId idOf(HANDLE _file) {
  BY_HANDLE_FILE_INFORMATION facts{};
  if (::GetFileType(_file) != FILE_TYPE_DISK || ::GetFileInformationByHandle(_file, &facts) == 0) return {};
  if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {};
  // Not the time of creation: a file that soon takes the name of a removed one gets that of its predecessor.
  return {facts.dwVolumeSerialNumber, joined(facts.nFileIndexHigh, facts.nFileIndexLow), 0};
}

}  // namespace

OpenResult LogFile::open(const std::string& _path) {
  close();
  const OpenHandle file(_path, GENERIC_READ);
  if (!file.isOpen()) {
    const DWORD error = ::GetLastError();
    // A name that no file can have is that of a file that does not exist.
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME)
      return OpenResult::missing;
    return error == ERROR_ACCESS_DENIED ? OpenResult::denied : OpenResult::unreadable;
  }
  id_ = idOf(file.get());
  path_ = _path;
  return isOpen() ? OpenResult::opened : OpenResult::unreadable;
}

std::int64_t LogFile::size() const {
  const OpenHandle file(path_, GENERIC_READ);
  LARGE_INTEGER size{};
  const bool isSame = file.isOpen() && idOf(file.get()) == id_;
  return isSame && ::GetFileSizeEx(file.get(), &size) != 0 ? size.QuadPart : -1;
}

std::size_t LogFile::readAt(std::int64_t _offset, char* _buffer, std::size_t _size) const {
  const OpenHandle file(path_, GENERIC_READ);
  if (!file.isOpen() || !(idOf(file.get()) == id_)) return 0;
  LARGE_INTEGER offset{};
  offset.QuadPart = _offset;
  DWORD size = 0;
  if (::SetFilePointerEx(file.get(), offset, nullptr, FILE_BEGIN) == 0) return 0;
  return ::ReadFile(file.get(), _buffer, static_cast<DWORD>(_size), &size, nullptr) != 0 ? size : 0;
}

void LogFile::close() { id_ = {}; }

void LogFile::swap(LogFile& _other) noexcept {
  std::swap(path_, _other.path_);
  std::swap(id_, _other.id_);
}

FileId fileIdAt(const std::string& _path) {
  const OpenHandle file(_path, FILE_READ_ATTRIBUTES);
  return file.isOpen() ? idOf(file.get()) : FileId();
}

}  // namespace toolsystem
