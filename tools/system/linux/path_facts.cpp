// SPDX-License-Identifier: MIT
#include "tools/system/path_facts.h"

#include <grp.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>

#include "tools/system/account.h"

namespace toolsystem {
namespace {

PathKind kindOf(mode_t _mode) {
  if (S_ISREG(_mode)) return PathKind::file;
  if (S_ISDIR(_mode)) return PathKind::folder;
  if (S_ISFIFO(_mode)) return PathKind::pipe;
  return S_ISSOCK(_mode) ? PathKind::socket : PathKind::device;
}

// Files are created in a folder only by who may enter it too.
bool mayOwnerWrite(mode_t _mode) {
  const mode_t needed = S_ISDIR(_mode) ? S_IWUSR | S_IXUSR : S_IWUSR;
  return (_mode & needed) == needed;
}

}  // namespace

PathFacts factsOf(const std::string& _path) {
  PathFacts facts;
  struct stat status {};
  if (::lstat(_path.c_str(), &status) != 0) {
    facts.isHidden = errno == EACCES;
    return facts;
  }
  facts.isLink = S_ISLNK(status.st_mode);
  const bool leadsSomewhere = ::stat(_path.c_str(), &status) == 0;
  facts.kind = leadsSomewhere ? kindOf(status.st_mode) : PathKind::danglingLink;
  facts.size = status.st_size;
  facts.writtenAt = std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
  facts.owner = status.st_uid;
  const std::optional<Account> owner = accountOfUser(std::to_string(status.st_uid));
  facts.ownerName = owner ? owner->name : std::to_string(status.st_uid);
  facts.ownerMayWrite = !leadsSomewhere || mayOwnerWrite(status.st_mode);
  facts.othersMayWrite = leadsSomewhere && (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
  facts.everybodyMayWrite = leadsSomewhere && (status.st_mode & S_IWOTH) != 0 && (status.st_mode & S_ISVTX) == 0;
  return facts;
}

std::optional<FolderGroup> groupOfFolder(const std::string& _folder) {
  constexpr mode_t needed = S_IWGRP | S_IXGRP;
  struct stat status {};
  if (::stat(_folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || (status.st_mode & needed) != needed)
    return std::nullopt;
  const struct group* const entry = ::getgrgid(status.st_gid);
  if (entry == nullptr) return std::nullopt;
  const Account own = ownAccount();
  const bool isSupplementary = std::find(own.groups.begin(), own.groups.end(), status.st_gid) != own.groups.end();
  return FolderGroup{entry->gr_name, own.gid == status.st_gid || isSupplementary};
}

std::optional<std::uint64_t> freeBytes(const std::string& _path) {
  struct statvfs status {};
  if (::statvfs(_path.c_str(), &status) != 0) return std::nullopt;
  return static_cast<std::uint64_t>(status.f_bavail) * status.f_frsize;
}

std::optional<std::uint64_t> freeFiles(const std::string& _path) {
  struct statvfs status {};
  if (::statvfs(_path.c_str(), &status) != 0 || status.f_files == 0) return std::nullopt;
  return status.f_favail;
}

}  // namespace toolsystem
