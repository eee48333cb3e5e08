// SPDX-License-Identifier: MIT
#include "platform/status_mapping.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include "platform/cancellation.h"
#include "platform/fault.h"
#include "platform/linux/blocked_signal.h"
#include "platform/linux/open_file.h"
#include "platform/linux/status_folder.h"

namespace platform {
namespace {

constexpr mode_t pageMode = 0600;

// Takes the memory now: with a full /dev/shm the first write to the mapping would otherwise be a SIGBUS.
bool reservePage(int _file, std::size_t _size) {
  BlockedSignal blocked(SIGXFSZ);
  int error = 0;
  do {
    error = ::posix_fallocate(_file, 0, static_cast<off_t>(_size));
  } while (error == EINTR);
  if (error == EFBIG) blocked.consume();
  return error == 0;
}

// A file of that name which nobody else has; one that a killed process has left goes.
FileDescriptor createFile(const FileDescriptor& _folder, const std::string& _name) {
  ::unlinkat(_folder.get(), _name.c_str(), 0);
  const int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  return FileDescriptor(aboveStandardStreams(::openat(_folder.get(), _name.c_str(), flags, pageMode)));
}

}  // namespace

std::unique_ptr<StatusMapping> StatusMapping::create(const Form& _form) {
  const CancellationDelay delay;
  if (injectedFault(Call::createStatusPage) != noError) return nullptr;
  const FileDescriptor folder = openStatusFolder();
  if (!folder.isOpen()) return nullptr;
  removeStalePages(folder, _form.namespaceOffset);
  // Not found by tools, which look for plain numbers.
  const std::string name = "." + std::to_string(::getpid());
  std::unique_ptr<StatusMapping> mapping(new StatusMapping);
  const FileDescriptor file = createFile(folder, name);
  struct stat status {};
  if (!file.isOpen()) return nullptr;
  mapping->path_ = statusFolderPath() + "/" + name;
  // The umask may have taken bits away.
  if (::fchmod(file.get(), pageMode) != 0 || !reservePage(file.get(), _form.size) ||
      ::fstat(file.get(), &status) != 0) {
    ::unlinkat(folder.get(), name.c_str(), 0);
    return nullptr;
  }
  mapping->volume_ = status.st_dev;
  mapping->file_ = status.st_ino;
  void* const words = ::mmap(nullptr, _form.size, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
  if (words == MAP_FAILED) return nullptr;
  mapping->words_ = static_cast<std::uint64_t*>(words);
  mapping->size_ = _form.size;
  return mapping;
}

StatusMapping::~StatusMapping() {
  const CancellationDelay delay;
  if (!path_.empty() && isInPlace()) ::unlink(path_.c_str());
  if (words_ != nullptr) ::munmap(words_, size_);
}

bool StatusMapping::show() {
  const CancellationDelay delay;
  const std::string path = statusFolderPath() + "/" + std::to_string(::getpid());
  if (::rename(path_.c_str(), path.c_str()) != 0) return false;
  path_ = path;
  return true;
}

bool StatusMapping::isInPlace() const {
  struct stat status {};
  if (::lstat(path_.c_str(), &status) != 0) return errno != ENOENT && errno != ENOTDIR;
  return status.st_dev == volume_ && status.st_ino == file_;
}

}  // namespace platform
