// SPDX-License-Identifier: MIT
#include "tools/system/process_list.h"

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <memory>
#include <utility>

#include "platform/linux/file_descriptor.h"
#include "tools/system/linux/process_maps.h"
#include "tools/system/linux/process_text.h"

namespace toolsystem {
namespace {

using platform::FileDescriptor;

constexpr std::uint32_t noUserId = 0xFFFFFFFF;
constexpr std::size_t largestText = std::size_t{16} * 1024 * 1024;

std::string processFile(std::uint32_t _pid, const char* _name) { return "/proc/" + std::to_string(_pid) + "/" + _name; }

// What a file of /proc holds; no value when it cannot be read.
std::optional<std::string> textOf(const std::string& _path) {
  const FileDescriptor file(::open(_path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.isOpen()) return std::nullopt;
  std::string text;
  std::array<char, 16384> part{};
  while (text.size() < largestText) {
    const ssize_t size = ::read(file.get(), part.data(), part.size());
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) return std::nullopt;
    if (size == 0) break;
    text.append(part.data(), static_cast<std::size_t>(size));
  }
  return text;
}

std::string userName(std::uint32_t _userId) {
  std::array<char, 16384> room{};
  passwd entry{};
  passwd* found = nullptr;
  const int error = ::getpwuid_r(_userId, &entry, room.data(), room.size(), &found);
  return error == 0 && found != nullptr ? found->pw_name : std::to_string(_userId);
}

std::string sharedMemoryOf(const std::string& _root) {
  struct stat status {};
  if (::stat((_root + "/dev/shm").c_str(), &status) != 0) return "";
  return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

std::string spaceOf(std::uint32_t _userId, const std::string& _sharedMemory) {
  return std::to_string(_userId) + "@" + _sharedMemory;
}

std::string executableOf(std::uint32_t _pid) {
  std::array<char, PATH_MAX> path{};
  const ssize_t size = ::readlink(processFile(_pid, "exe").c_str(), path.data(), path.size());
  return size > 0 ? std::string(path.data(), static_cast<std::size_t>(size)) : "";
}

ProcessFacts allFactsOf(std::uint32_t _pid, const std::string& _ownMemory) {
  ProcessFacts facts;
  facts.pid = _pid;
  const std::string line = textOf(processFile(_pid, "stat")).value_or("");
  facts.activity = activityOfStat(line);
  facts.name = nameOfStat(line);
  facts.userId = effectiveUserId(textOf(processFile(_pid, "status")).value_or("")).value_or(noUserId);
  facts.pageUserId = mappedUserId(textOf(processFile(_pid, "uid_map")).value_or(""),
                                  textOf("/proc/self/uid_map").value_or(""), facts.userId);
  facts.user = userName(facts.userId);
  facts.executable = executableOf(_pid);
  const std::string root = processFile(_pid, "root");
  const std::string memory = sharedMemoryOf(root);
  if (!memory.empty() && memory != _ownMemory) facts.root = root;
  facts.space = spaceOf(facts.userId, memory.empty() ? _ownMemory : memory);
  return facts;
}

// No value: the process has ended, or has not loaded the library.
std::optional<ProcessFacts> factsIfRelevant(std::uint32_t _pid, const std::string& _ownMemory) {
  const std::optional<std::string> maps = textOf(processFile(_pid, "maps"));
  if (!maps && errno != EACCES && errno != EPERM) return std::nullopt;
  const bool hasLibrary = maps && mapsLibrary(*maps);
  std::vector<std::string> events = maps ? mappedEvents(*maps) : std::vector<std::string>();
  if (maps && !hasLibrary && events.empty()) return std::nullopt;
  ProcessFacts facts = allFactsOf(_pid, _ownMemory);
  facts.isReadable = maps.has_value();
  facts.hasLibrary = maps.has_value();
  facts.events = std::move(events);
  return facts;
}

std::vector<std::uint32_t> processIds() {
  std::vector<std::uint32_t> ids;
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::opendir("/proc"), &::closedir);
  if (list == nullptr) return ids;
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr; entry = ::readdir(list.get())) {
    const std::string_view name = entry->d_name;
    std::uint32_t id = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), id);
    if (error == std::errc() && stop == name.data() + name.size()) ids.push_back(id);
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

// The numbers of the event files that the caller can see for himself.
std::vector<std::uint64_t> ownEventFiles() {
  std::vector<std::uint64_t> files;
  const std::string folder = "/dev/shm/qmrk-" + std::to_string(::geteuid());
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::opendir(folder.c_str()), &::closedir);
  if (list == nullptr) return files;
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr; entry = ::readdir(list.get())) {
    files.push_back(entry->d_ino);
  }
  return files;
}

}  // namespace

std::vector<ProcessFacts> listProcesses(std::optional<std::uint32_t> _only) {
  std::vector<ProcessFacts> processes;
  const std::string ownMemory = sharedMemoryOf("");
  for (const std::uint32_t id : _only ? std::vector<std::uint32_t>{*_only} : processIds()) {
    if (id == static_cast<std::uint32_t>(::getpid())) continue;
    if (auto facts = factsIfRelevant(id, ownMemory)) processes.push_back(std::move(*facts));
  }
  return processes;
}

ProcessFacts factsOfProcess(std::uint32_t _pid) { return allFactsOf(_pid, sharedMemoryOf("")); }

ProcessFacts placeFacts(std::uint32_t _userId) {
  ProcessFacts facts;
  facts.userId = _userId;
  facts.pageUserId = _userId;
  facts.user = userName(_userId);
  facts.space = spaceOf(_userId, sharedMemoryOf(""));
  return facts;
}

Activity activityOf(std::uint32_t _pid) {
  const auto line = textOf(processFile(_pid, "stat"));
  return line ? activityOfStat(*line) : Activity::ended;
}

std::size_t foreignListeners() {
  struct stat memory {};
  if (::stat("/dev/shm", &memory) != 0) return 0;
  return settledCount(
      [&] { return countEventUsers(textOf("/proc/locks").value_or(""), memory.st_dev, ownEventFiles()); });
}

bool seesEveryProcess() { return ::geteuid() == 0; }

}  // namespace toolsystem
