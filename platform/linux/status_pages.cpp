// SPDX-License-Identifier: MIT
#include "platform/status_pages.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <memory>
#include <string_view>
#include <thread>

#include "platform/linux/errno_code.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/mapped_file.h"
#include "platform/linux/process_names.h"

namespace platform {
namespace {

constexpr std::size_t mostPages = 4096;
constexpr std::chrono::milliseconds betweenTries{1};
constexpr int mostTries = 50;
constexpr std::string_view folderPrefix = "qmrk-";
constexpr mode_t ownerOnly = 0700;
constexpr mode_t permissionBits = 07777;
constexpr mode_t othersBits = 077;

FileDescriptor openFolder(int _folder, const std::string& _name, int _flags = O_NOFOLLOW) {
  return FileDescriptor(::openat(_folder, _name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | _flags));
}

// A foreign root may lead anywhere by its links, which count from the caller's root.
FileDescriptor openSharedMemory(const std::string& _root) {
  if (_root.empty()) return openFolder(AT_FDCWD, "/dev/shm", 0);
  const FileDescriptor root = openFolder(AT_FDCWD, _root, 0);
  if (!root.isOpen()) return FileDescriptor();
  const FileDescriptor devices = openFolder(root.get(), "dev");
  return devices.isOpen() ? openFolder(devices.get(), "shm") : FileDescriptor();
}

// The names in a folder that has been opened, at most so many of those that are wanted.
template <class IsWanted>
std::vector<std::string> namesIn(const FileDescriptor& _folder, IsWanted _isWanted) {
  std::vector<std::string> names;
  FileDescriptor copy = openFolder(_folder.get(), ".", 0);
  if (!copy.isOpen()) return names;
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::fdopendir(copy.get()), &::closedir);
  if (list == nullptr) return names;
  copy.release();
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr && names.size() < mostPages;
       entry = ::readdir(list.get())) {
    if (_isWanted(std::string_view(entry->d_name))) names.emplace_back(entry->d_name);
  }
  return names;
}

bool isUserFolder(std::string_view _name) {
  return _name.starts_with(folderPrefix) && numberOfName(_name.substr(folderPrefix.size())).has_value();
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

// errorBusy when the page was written meanwhile. Read and not mapped, since its owner can shorten the file at any time.
ErrorCode tryToCopy(int _file, const StatusPageForm& _form, std::string& _bytes) {
  std::uint64_t before = 0;
  std::uint64_t after = 0;
  if (!readPart(_file, _form.sequenceOffset, reinterpret_cast<char*>(&before), sizeof before)) return errorNotTrusted;
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (!readPart(_file, 0, _bytes.data(), _bytes.size())) return errorNotTrusted;
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (!readPart(_file, _form.sequenceOffset, reinterpret_cast<char*>(&after), sizeof after)) return errorNotTrusted;
  return before % 2 == 0 && before == after ? noError : errorBusy;
}

ErrorCode copyWhole(int _file, const StatusPageForm& _form, std::string& _bytes) {
  _bytes.resize(_form.size);
  ErrorCode error = tryToCopy(_file, _form, _bytes);
  for (int tries = 1; error == errorBusy && tries < mostTries; ++tries) {
    std::this_thread::sleep_for(betweenTries);
    error = tryToCopy(_file, _form, _bytes);
  }
  return error;
}

struct UserFolder {
  FileDescriptor pages;
  std::uint32_t owner;
};

ErrorCode copyPage(const UserFolder& _folder, const std::string& _name, const StatusPageForm& _form,
                   StatusPageCopy& _copy) {
  const FileDescriptor file(
      ::openat(_folder.pages.get(), _name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.isOpen()) return errno == ELOOP || errno == ENXIO ? errorNotTrusted : errnoCode(errno);
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) return errnoCode(errno);
  const bool isTrusted = S_ISREG(status.st_mode) && status.st_uid == _folder.owner &&
                         (status.st_mode & othersBits) == 0 && status.st_size == static_cast<off_t>(_form.size);
  if (!isTrusted) return errorNotTrusted;
  _copy.isInUse = mapsFile(_copy.processId, status.st_dev, status.st_ino);
  return copyWhole(file.get(), _form, _copy.bytes);
}

// noError with closed pages when there are none.
ErrorCode openUserFolder(int _sharedMemory, const std::string& _name, bool _isOwnRoot, UserFolder& _folder) {
  const FileDescriptor folder = openFolder(_sharedMemory, _name);
  if (!folder.isOpen() && errno == ENOENT) return noError;
  if (!folder.isOpen()) return errno == ELOOP || errno == ENOTDIR ? errorNotTrusted : errnoCode(errno);
  struct stat status {};
  if (::fstat(folder.get(), &status) != 0) return errnoCode(errno);
  // In a foreign root the same user may have another id.
  if (_isOwnRoot && status.st_uid != numberOfName(_name.substr(folderPrefix.size()))) return errorNotTrusted;
  if ((status.st_mode & permissionBits) != ownerOnly) return errorNotTrusted;
  _folder.owner = status.st_uid;
  _folder.pages = openFolder(folder.get(), "apps");
  if (!_folder.pages.isOpen() && errno == ENOENT) return noError;
  if (!_folder.pages.isOpen()) return errno == ELOOP || errno == ENOTDIR ? errorNotTrusted : errnoCode(errno);
  if (::fstat(_folder.pages.get(), &status) != 0) return errnoCode(errno);
  const bool isTrusted = status.st_uid == _folder.owner && (status.st_mode & permissionBits) == ownerOnly;
  return isTrusted ? noError : errorNotTrusted;
}

void addPages(int _sharedMemory, const std::string& _name, const StatusPagePlace& _place, const StatusPageForm& _form,
              std::vector<StatusPageCopy>& _copies) {
  UserFolder folder{FileDescriptor(), 0};
  StatusPageCopy copy;
  copy.path = _place.root + "/dev/shm/" + _name;
  copy.error = openUserFolder(_sharedMemory, _name, _place.root.empty(), folder);
  copy.userId = folder.pages.isOpen() ? folder.owner : numberOfName(_name.substr(folderPrefix.size())).value_or(0);
  if (copy.error != noError) _copies.push_back(copy);
  if (copy.error != noError || !folder.pages.isOpen()) return;
  const ProcessNames names(_place.root);
  for (const std::string& page : namesIn(folder.pages, [](auto _page) { return numberOfName(_page).has_value(); })) {
    StatusPageCopy& added = _copies.emplace_back(copy);
    added.path += "/apps/" + page;
    added.pageProcessId = numberOfName(page).value_or(0);
    added.processId = names.processId(added.pageProcessId);
    added.error = copyPage(folder, page, _form, added);
    if (added.error != noError) added.bytes.clear();
    // It was removed meanwhile.
    if (added.error == errorPathNotFound) _copies.pop_back();
  }
}

}  // namespace

std::vector<StatusPageCopy> copyStatusPages(const StatusPagePlace& _place, const StatusPageForm& _form) {
  std::vector<StatusPageCopy> copies;
  const FileDescriptor sharedMemory = openSharedMemory(_place.root);
  if (!sharedMemory.isOpen()) return copies;
  if (_place.userId) {
    addPages(sharedMemory.get(), std::string(folderPrefix) + std::to_string(*_place.userId), _place, _form, copies);
    return copies;
  }
  for (const std::string& name : namesIn(sharedMemory, isUserFolder)) {
    addPages(sharedMemory.get(), name, _place, _form, copies);
  }
  return copies;
}

}  // namespace platform
