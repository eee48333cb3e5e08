// SPDX-License-Identifier: MIT
#include "tools/system/event_place.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <memory>
#include <string_view>

#include "platform/linux/errno_code.h"
#include "platform/linux/event_folder.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/foreign_event.h"
#include "platform/linux/status_page_files.h"
#include "tools/system/account.h"

namespace toolsystem {
namespace {

using platform::FileDescriptor;

EventPlace placeOf(const ProcessFacts& _process) {
  EventPlace place;
  place.text = "user " + _process.user;
  if (!_process.root.empty()) {
    place.text += " with a /dev/shm of its own (process " + std::to_string(_process.pid) + ")";
  }
  place.space = _process.space;
  place.root = _process.root;
  place.folderUserId = _process.pageUserId;
  place.owner = _process.userId;
  return place;
}

// The users who have a folder in the caller's shared memory.
std::vector<std::uint32_t> usersWithFolder() {
  std::vector<std::uint32_t> users;
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::opendir("/dev/shm"), &::closedir);
  if (list == nullptr) return users;
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr; entry = ::readdir(list.get())) {
    std::string_view name = entry->d_name;
    if (!name.starts_with(platform::statusUserFolderPrefix)) continue;
    name.remove_prefix(platform::statusUserFolderPrefix.size());
    std::uint32_t user = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), user);
    if (error == std::errc() && stop == name.data() + name.size()) users.push_back(user);
  }
  std::sort(users.begin(), users.end());
  return users;
}

void addPlace(EventPlace _place, std::vector<EventPlace>& _places) {
  const bool isThere = std::any_of(_places.begin(), _places.end(),
                                   [&_place](const EventPlace& _other) { return _other.space == _place.space; });
  if (!isThere) _places.push_back(std::move(_place));
}

}  // namespace

std::vector<EventPlace> eventPlaces(const std::vector<ProcessFacts>& _processes, const EventScope& _scope) {
  std::vector<EventPlace> places;
  if (_scope.isOwnWanted) addPlace(placeOf(placeFacts(::geteuid())), places);
  for (const ProcessFacts& process : _processes)
    addPlace(placeOf(process), places);
  if (!_scope.areAllWanted) return places;
  for (const std::uint32_t user : usersWithFolder())
    addPlace(placeOf(placeFacts(user)), places);
  return places;
}

std::string distrustedFolder(const ProcessFacts& _process) {
  constexpr mode_t permissionBits = 07777;
  const std::string path =
      "/dev/shm/" + std::string(platform::statusUserFolderPrefix) + std::to_string(_process.pageUserId);
  struct stat status {};
  if (::lstat((_process.root + path).c_str(), &status) != 0) return "";
  if (!S_ISDIR(status.st_mode)) return path + ", which is no folder";
  // The library itself gives the user a right that is missing.
  const bool isOfOthers = (status.st_mode & permissionBits & ~mode_t{S_IRWXU}) != 0;
  if (status.st_uid == _process.userId && !isOfOthers) return "";
  char mode[8];
  std::snprintf(mode, sizeof mode, "%04o", static_cast<unsigned int>(status.st_mode & permissionBits));
  const std::optional<Account> owner = accountOfUser(std::to_string(status.st_uid));
  return path + ", which belongs to " + (owner ? owner->name : std::to_string(status.st_uid)) + ", mode " + mode;
}

platform::ErrorCode setEventAt(const EventPlace& _place, const std::string& _event) {
  const FileDescriptor memory = platform::openSharedMemory(_place.root);
  if (!memory.isOpen()) return platform::errnoCode(errno);
  const std::string path = "/proc/self/fd/" + std::to_string(memory.get()) + "/" +
                           std::string(platform::statusUserFolderPrefix) + std::to_string(_place.folderUserId);
  const platform::ErrorCode error = platform::setForeignEvent({path, _place.owner}, _event);
  // Who has no folder holds no event.
  return error == platform::errorPathNotFound ? platform::errorFileNotFound : error;
}

}  // namespace toolsystem
