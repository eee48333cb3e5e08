// SPDX-License-Identifier: MIT
#include "platform/linux/status_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/linux/event_folder.h"
#include "platform/linux/open_file.h"
#include "platform/running_process.h"

namespace platform {
namespace {

constexpr char folderName[] = "apps";
constexpr mode_t pagesFolderMode = 0700;
constexpr mode_t folderModeBits = 07777;
constexpr int mostFolderAttempts = 10;

FileDescriptor openBelow(const FileDescriptor& _folder, const char* _name) {
  const int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  return FileDescriptor(aboveStandardStreams(::openat(_folder.get(), _name, flags)));
}

bool isTrustedFolderOfPages(const FileDescriptor& _folder) {
  struct stat status {};
  return ::fstat(_folder.get(), &status) == 0 && status.st_uid == ::geteuid() &&
         (status.st_mode & folderModeBits) == pagesFolderMode;
}

// The umask may have taken bits away. A folder with other rights is not trusted, so none is left there.
void makeFolderOfPages(const FileDescriptor& _parent) {
  if (::mkdirat(_parent.get(), folderName, pagesFolderMode) != 0) return;
  if (::fchmodat(_parent.get(), folderName, pagesFolderMode, 0) != 0)
    ::unlinkat(_parent.get(), folderName, AT_REMOVEDIR);
}

// The process id of a name: that of a page, or of one that was not shown yet; 0 for any other.
pid_t processOfName(std::string_view _name) {
  if (_name.starts_with('.')) _name.remove_prefix(1);
  pid_t process = 0;
  const char* const end = _name.data() + _name.size();
  const auto [stop, error] = std::from_chars(_name.data(), end, process);
  return error == std::errc() && stop == end && process > 0 ? process : 0;
}

bool isStale(const FileDescriptor& _folder, const char* _name, std::size_t _namespaceOffset) {
  const pid_t process = processOfName(_name);
  if (process == 0 || ::kill(process, 0) == 0 || errno != ESRCH) return false;
  const FileDescriptor page(::openat(_folder.get(), _name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  std::uint64_t space = 0;
  const auto size = static_cast<ssize_t>(sizeof space);
  return page.isOpen() && ::pread(page.get(), &space, sizeof space, static_cast<off_t>(_namespaceOffset)) == size &&
         (space == 0 || space == processNamespace());
}

}  // namespace

std::string statusFolderPath() { return eventFolderPath() + "/" + folderName; }

FileDescriptor openStatusFolder() {
  for (int attempt = 0; attempt < mostFolderAttempts; ++attempt) {
    const FileDescriptor parent = openEventFolder(ownEventFolder(), true);
    if (!parent.isOpen() && errno != ENOENT) return FileDescriptor();
    if (!parent.isOpen()) continue;
    FileDescriptor folder = openBelow(parent, folderName);
    if (!folder.isOpen() && errno == ENOENT) {
      makeFolderOfPages(parent);
      folder = openBelow(parent, folderName);
    }
    if (folder.isOpen()) return isTrustedFolderOfPages(folder) ? std::move(folder) : FileDescriptor();
    // Somebody removes the folders meanwhile.
    if (errno != ENOENT) return FileDescriptor();
  }
  return FileDescriptor();
}

void removeStalePages(const FileDescriptor& _folder, std::size_t _namespaceOffset) {
  FileDescriptor copy = openBelow(_folder, ".");
  if (!copy.isOpen()) return;
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::fdopendir(copy.get()), &::closedir);
  if (list == nullptr) return;
  copy.release();
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr; entry = ::readdir(list.get())) {
    if (isStale(_folder, entry->d_name, _namespaceOffset)) ::unlinkat(_folder.get(), entry->d_name, 0);
  }
}

}  // namespace platform
