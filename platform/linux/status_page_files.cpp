// SPDX-License-Identifier: MIT
#include "platform/linux/status_page_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "platform/linux/errno_code.h"
#include "platform/linux/process_names.h"

namespace platform {
namespace {

constexpr mode_t ownerOnly = 0700;
constexpr mode_t statusPermissionBits = 07777;
constexpr mode_t othersBits = 077;

FileDescriptor openStatusFolderAt(int _folder, const std::string& _name, int _flags) {
  return FileDescriptor(::openat(_folder, _name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | _flags));
}

// Reads so many bytes from a place of the file.
bool readPart(int _file, std::size_t _offset, char* _bytes, std::size_t _size) {
  while (_size > 0) {
    const ssize_t done = ::pread(_file, _bytes, _size, static_cast<off_t>(_offset));
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return false;
    _bytes += done;
    _offset += static_cast<std::size_t>(done);
    _size -= static_cast<std::size_t>(done);
  }
  return true;
}

}  // namespace

// A foreign root may lead anywhere by its links, which count from the caller's root.
FileDescriptor openSharedMemory(const std::string& _root) {
  if (_root.empty()) return openStatusFolderAt(AT_FDCWD, "/dev/shm", 0);
  const FileDescriptor root = openStatusFolderAt(AT_FDCWD, _root, 0);
  if (!root.isOpen()) return FileDescriptor();
  const FileDescriptor devices = openFolderBelow(root.get(), "dev");
  return devices.isOpen() ? openFolderBelow(devices.get(), "shm") : FileDescriptor();
}

FileDescriptor openFolderBelow(int _folder, const std::string& _name) {
  return openStatusFolderAt(_folder, _name, O_NOFOLLOW);
}

ErrorCode openStatusUserFolder(int _sharedMemory, const std::string& _name, bool _isOwnRoot,
                               StatusUserFolder& _folder) {
  const FileDescriptor folder = openFolderBelow(_sharedMemory, _name);
  if (!folder.isOpen() && errno == ENOENT) return noError;
  if (!folder.isOpen()) return errno == ELOOP || errno == ENOTDIR ? errorNotTrusted : errnoCode(errno);
  struct stat status {};
  if (::fstat(folder.get(), &status) != 0) return errnoCode(errno);
  // In a foreign root the same user may have another id.
  if (_isOwnRoot && status.st_uid != numberOfName(_name.substr(statusUserFolderPrefix.size()))) return errorNotTrusted;
  if ((status.st_mode & statusPermissionBits) != ownerOnly) return errorNotTrusted;
  _folder.owner = status.st_uid;
  _folder.pages = openFolderBelow(folder.get(), "apps");
  if (!_folder.pages.isOpen() && errno == ENOENT) return noError;
  if (!_folder.pages.isOpen()) return errno == ELOOP || errno == ENOTDIR ? errorNotTrusted : errnoCode(errno);
  if (::fstat(_folder.pages.get(), &status) != 0) return errnoCode(errno);
  const bool isTrusted = status.st_uid == _folder.owner && (status.st_mode & statusPermissionBits) == ownerOnly;
  return isTrusted ? noError : errorNotTrusted;
}

ErrorCode openStatusPage(const StatusUserFolder& _folder, const std::string& _name, const StatusPageForm& _form,
                         FileDescriptor& _page, struct stat& _status) {
  _page = FileDescriptor(
      ::openat(_folder.pages.get(), _name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!_page.isOpen()) return errno == ELOOP || errno == ENXIO ? errorNotTrusted : errnoCode(errno);
  if (::fstat(_page.get(), &_status) != 0) return errnoCode(errno);
  const bool isTrusted = S_ISREG(_status.st_mode) && _status.st_uid == _folder.owner &&
                         (_status.st_mode & othersBits) == 0 && _status.st_size == static_cast<off_t>(_form.size);
  return isTrusted ? noError : errorNotTrusted;
}

bool readStatusSequence(int _page, const StatusPageForm& _form, std::uint64_t& _sequence) {
  return readPart(_page, _form.sequenceOffset, reinterpret_cast<char*>(&_sequence), sizeof _sequence);
}

// Read and not mapped, since its owner can shorten the file at any time.
ErrorCode tryToCopyStatusPage(int _page, const StatusPageForm& _form, std::string& _bytes) {
  std::uint64_t before = 0;
  std::uint64_t after = 0;
  if (!readStatusSequence(_page, _form, before)) return errorNotTrusted;
  std::atomic_thread_fence(std::memory_order_seq_cst);
  _bytes.resize(_form.size);
  if (!readPart(_page, 0, _bytes.data(), _bytes.size())) return errorNotTrusted;
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (!readStatusSequence(_page, _form, after)) return errorNotTrusted;
  return before % 2 == 0 && before == after ? noError : errorBusy;
}

}  // namespace platform
