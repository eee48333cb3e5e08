// SPDX-License-Identifier: MIT
#include "platform/running_process.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/open_file.h"
#include "platform/linux/process_stat.h"

namespace platform {

std::uint64_t startTimeOf(std::uint32_t _processId) {
  const std::string path = "/proc/" + std::to_string(_processId) + "/stat";
  const FileDescriptor file(aboveStandardStreams(::open(path.c_str(), O_RDONLY | O_CLOEXEC)));
  if (!file.isOpen()) return 0;
  // All fields but the name are numbers, and it is short.
  std::array<char, 2048> text{};
  const ssize_t size = ::read(file.get(), text.data(), text.size());
  return size <= 0 ? 0 : startTimeOfStat({text.data(), static_cast<std::size_t>(size)});
}

std::uint64_t processNamespace() {
  struct stat status {};
  return ::stat("/proc/self/ns/pid", &status) == 0 ? status.st_ino : 0;
}

std::string programPath() {
  std::string path(PATH_MAX, '\0');
  const ssize_t size = ::readlink("/proc/self/exe", path.data(), path.size());
  path.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

std::uint32_t userId() { return ::geteuid(); }

std::string userName() { return {}; }

}  // namespace platform
