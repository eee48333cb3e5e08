// SPDX-License-Identifier: MIT
#include "platform/linux/process_names.h"

#include <dirent.h>
#include <sys/stat.h>

#include <charconv>
#include <fstream>
#include <memory>

#include "platform/running_process.h"

namespace platform {
namespace {

constexpr std::string_view rootBegin = "/proc/";
constexpr std::string_view rootEnd = "/root";

// 0 when it cannot be looked at.
std::uint64_t namespaceOf(const std::string& _process) {
  struct stat status {};
  return ::stat(("/proc/" + _process + "/ns/pid").c_str(), &status) == 0 ? status.st_ino : 0;
}

// The number that a process has in its own namespace, the innermost: the last of the line.
std::optional<std::uint32_t> innermostNumber(const std::string& _process) {
  std::ifstream status("/proc/" + _process + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("NSpid:")) return numberOfName(std::string_view(line).substr(line.find_last_of("\t ") + 1));
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::uint32_t> numberOfName(std::string_view _name) {
  std::uint32_t number = 0;
  const char* const end = _name.data() + _name.size();
  const auto [stop, error] = std::from_chars(_name.data(), end, number);
  if (error != std::errc() || stop != end || std::to_string(number) != _name) return std::nullopt;
  return number;
}

ProcessNames::ProcessNames(const std::string& _root) {
  if (!_root.starts_with(rootBegin) || !_root.ends_with(rootEnd)) return;
  const std::string process = _root.substr(rootBegin.size(), _root.size() - rootBegin.size() - rootEnd.size());
  const std::uint64_t space = namespaceOf(process);
  if (space == 0 || space == processNamespace()) return;
  isOwn_ = false;
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::opendir("/proc"), &::closedir);
  if (list == nullptr) return;
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr; entry = ::readdir(list.get())) {
    if (numberOfName(entry->d_name)) addProcess(entry->d_name, space);
  }
}

void ProcessNames::addProcess(const std::string& _process, std::uint64_t _namespace) {
  if (namespaceOf(_process) != _namespace) return;
  const auto number = innermostNumber(_process);
  if (number) processIds_[*number] = *numberOfName(_process);
}

std::uint32_t ProcessNames::processId(std::uint32_t _number) const {
  if (isOwn_) return _number;
  const auto found = processIds_.find(_number);
  return found != processIds_.end() ? found->second : 0;
}

}  // namespace platform
