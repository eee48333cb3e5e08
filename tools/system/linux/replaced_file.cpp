// SPDX-License-Identifier: MIT
#include "tools/system/replaced_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/linux/file_descriptor.h"
#include "platform/native_path.h"
#include "tools/system/account.h"
#include "tools/system/linux/folder_share.h"
#include "tools/system/linux/unfinished_file.h"

namespace toolsystem {
namespace {

using platform::FileDescriptor;

constexpr mode_t newFileMode = 0666;
constexpr mode_t mostNewBits = 0644;
constexpr mode_t permissionBits = 07777;
constexpr std::size_t largestAttribute = 65'536;

FileFailure failureOf(const std::string& _what) {
  const int error = errno;
  return {_what + ": " + std::generic_category().message(error), error == EACCES || error == EPERM || error == EROFS,
          error == ENOENT || error == ENOTDIR};
}

// Where the chain of links ends; the path itself when it is no link, or nothing is there yet. The folders above stay as
// they are written: /proc/PID/root is a link whose text leads back to the files of this program.
std::string targetOf(const std::string& _path) {
  struct stat status {};
  if (::lstat(_path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return _path;
  std::array<char, PATH_MAX> target{};
  return ::realpath(_path.c_str(), target.data()) != nullptr ? std::string(target.data()) : _path;
}

// What a user has put in place of a file must not lead root to a file of somebody else.
bool isLinkOfStranger(const std::string& _path, const std::string& _target) {
  struct stat link {};
  struct stat target {};
  if (::geteuid() != 0 || _path == _target || ::lstat(_path.c_str(), &link) != 0) return false;
  return link.st_uid != 0 && (::stat(_target.c_str(), &target) != 0 || target.st_uid != link.st_uid);
}

// The new file, removed unless it takes the name.
class NewFile {
 public:
  explicit NewFile(const std::string& _target) : target_(_target) { file_ = makeUnfinishedFile(folder(), path_); }
  ~NewFile() {
    if (file_.isOpen() && !hasName_) ::unlink(path_.c_str());
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  bool isOpen() const { return file_.isOpen(); }
  int get() const { return file_.get(); }

  std::string folder() const {
    const std::size_t end = target_.find_last_of('/');
    if (end == std::string::npos) return ".";
    return end == 0 ? "/" : target_.substr(0, end);
  }

  bool write(std::string_view _bytes) const {
    while (!_bytes.empty()) {
      const ssize_t size = ::write(get(), _bytes.data(), _bytes.size());
      if (size < 0 && errno == EINTR) continue;
      if (size < 0) return false;
      _bytes.remove_prefix(static_cast<std::size_t>(size));
    }
    return true;
  }

  bool takeName() {
    hasName_ = ::rename(path_.c_str(), target_.c_str()) == 0;
    return hasName_;
  }

 private:
  const std::string target_;
  std::string path_;
  FileDescriptor file_;
  bool hasName_ = false;
};

// Access control lists and whatever else stands with the file; a file system without them has none to copy.
void copyAttributes(int _from, int _to) {
  std::vector<char> names(largestAttribute);
  const ssize_t size = ::flistxattr(_from, names.data(), names.size());
  if (size <= 0) return;
  std::vector<char> value(largestAttribute);
  for (const char* name = names.data(); name < names.data() + size; name += std::string_view(name).size() + 1) {
    const ssize_t length = ::fgetxattr(_from, name, value.data(), value.size());
    if (length >= 0) ::fsetxattr(_to, name, value.data(), static_cast<std::size_t>(length), 0);
  }
}

bool isMember(uid_t _user, gid_t _group) {
  const std::optional<Account> account = accountOfUser(std::to_string(_user));
  if (!account) return false;
  const auto& groups = account->groups;
  return account->gid == _group || std::find(groups.begin(), groups.end(), _group) != groups.end();
}

// Only root can give a file away. A list that changes its owner may be out of reach for the one who looks after it,
// unless he writes it as a member of a group that stays.
bool takeOverGroup(const struct stat& _former, int _file) {
  const int error = errno;
  const bool keepsItsWriter =
      (_former.st_mode & S_IWGRP) != 0 && (_former.st_uid == 0 || isMember(_former.st_uid, _former.st_gid));
  if (keepsItsWriter && ::fchown(_file, static_cast<uid_t>(-1), _former.st_gid) == 0) return true;
  errno = error;
  return false;
}

// The owner of a file may write it in any case. Those of his own group get no rights that they did not have.
bool takeOwn(const struct stat& _former, int _formerFile, int _file) {
  constexpr char rightsName[] = "system.posix_acl_access";
  const int error = errno;
  const bool hasRightsOfOthers = _formerFile == -1 || ::fgetxattr(_formerFile, rightsName, nullptr, 0) >= 0;
  if (_former.st_uid == ::geteuid() && !hasRightsOfOthers) {
    const mode_t ofGroup = _former.st_mode & ((_former.st_mode & S_IRWXO) << 3U);
    return ::fchmod(_file, (_former.st_mode & (S_IRWXU | S_IRWXO)) | ofGroup) == 0;
  }
  errno = error;
  return false;
}

bool takeOver(const std::string& _target, int _file) {
  struct stat former {};
  const FileDescriptor file(::open(_target.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  const bool isThere = file.isOpen() ? ::fstat(file.get(), &former) == 0 : ::stat(_target.c_str(), &former) == 0;
  if (!isThere) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    if (::fchmod(_file, newFileMode & mostNewBits & ~mask) != 0) return false;
    shareWithFolder(_target, _file);
    return true;
  }
  struct stat now {};
  if (::fstat(_file, &now) != 0) return false;
  const bool isOwn = now.st_uid == former.st_uid && now.st_gid == former.st_gid;
  if (!isOwn && ::fchown(_file, former.st_uid, former.st_gid) != 0 && !takeOverGroup(former, _file))
    return takeOwn(former, file.get(), _file);
  if (::fchmod(_file, former.st_mode & permissionBits) != 0) return false;
  if (file.isOpen()) copyAttributes(file.get(), _file);
  return true;
}

bool isFolderOnDisk(const std::string& _folder) {
  const FileDescriptor folder(::open(_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Some file systems cannot do it, and do not need it.
  return !folder.isOpen() || ::fsync(folder.get()) == 0 || errno == EINVAL;
}

}  // namespace

std::optional<FileFailure> replaceFile(const std::string& _path, const std::string& _bytes) {
  const std::string target = targetOf(platform::nativePath(_path));
  if (isLinkOfStranger(platform::nativePath(_path), target)) {
    return FileFailure{platform::nativePath(_path) + " is a link to a file of another user than its own", true, false};
  }
  struct stat status {};
  if (::stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    return FileFailure{target + " is no regular file", false, false};
  }
  NewFile file(target);
  if (!file.isOpen()) return failureOf("cannot make a file in " + file.folder());
  if (!file.write(_bytes)) return failureOf("cannot write a new " + target);
  if (!takeOver(target, file.get())) return failureOf("cannot keep owner and mode of " + target);
  if (::fsync(file.get()) != 0) return failureOf("cannot bring a new " + target + " to the disk");
  if (!file.takeName()) return failureOf("cannot replace " + target);
  removeAbandonedFiles(file.folder());
  if (!isFolderOnDisk(file.folder())) return failureOf("cannot bring the folder of " + target + " to the disk");
  return std::nullopt;
}

}  // namespace toolsystem
