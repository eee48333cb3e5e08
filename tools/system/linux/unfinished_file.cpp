// SPDX-License-Identifier: MIT
#include "tools/system/linux/unfinished_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace toolsystem {
namespace {

using platform::FileDescriptor;

constexpr std::string_view namePrefix = ".qmrkctl-";
constexpr std::string_view nameTemplate = ".qmrkctl-XXXXXX";

struct CloseFolder {
  void operator()(DIR* _folder) const { ::closedir(_folder); }
};

// A file system without locks has none that could be missed; nothing is removed there.
void lock(int _file) {
  while (::flock(_file, LOCK_EX) != 0 && errno == EINTR) {
  }
}

// Whether the file has been removed before it was locked.
bool isRemoved(int _file) {
  struct stat status {};
  return ::fstat(_file, &status) == 0 && status.st_nlink == 0;
}

void removeIfAbandoned(int _folder, const char* _name) {
  // O_NONBLOCK is for what may stand there instead of a file.
  const FileDescriptor file(::openat(_folder, _name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) ::unlinkat(_folder, _name, 0);
}

}  // namespace

FileDescriptor makeUnfinishedFile(const std::string& _folder, std::string& _path) {
  for (;;) {
    _path = _folder + "/" + std::string(nameTemplate);
    FileDescriptor file(::mkostemp(_path.data(), O_CLOEXEC));
    if (file.isOpen()) lock(file.get());
    if (!file.isOpen() || !isRemoved(file.get())) return file;
  }
}

void removeAbandonedFiles(const std::string& _folder) {
  const std::unique_ptr<DIR, CloseFolder> folder(::opendir(_folder.c_str()));
  if (!folder) return;
  while (const dirent* const entry = ::readdir(folder.get())) {
    const std::string_view name(entry->d_name);
    if (name.size() == nameTemplate.size() && name.starts_with(namePrefix))
      removeIfAbandoned(::dirfd(folder.get()), entry->d_name);
  }
}

}  // namespace toolsystem
