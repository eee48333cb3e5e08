// SPDX-License-Identifier: MIT
#include "tools/system/path_in_root.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <optional>
#include <utility>

namespace toolsystem {
namespace {

// As many as the system itself follows.
constexpr int mostLinks = 40;

std::optional<std::string> targetOfLink(const std::string& _path) {
  std::array<char, PATH_MAX> target{};
  const ssize_t size = ::readlink(_path.c_str(), target.data(), target.size());
  if (size <= 0) return std::nullopt;
  return std::string(target.data(), static_cast<std::size_t>(size));
}

// Takes the part in front of the next separator off.
std::string takeFirst(std::string& _path) {
  const std::size_t end = _path.find('/');
  std::string first = _path.substr(0, end);
  _path.erase(0, end == std::string::npos ? end : end + 1);
  return first;
}

}  // namespace

std::string pathInRoot(const std::string& _root, const std::string& _path) {
  if (_root.empty()) return _path;
  std::string reached;
  std::string left = _path;
  int links = 0;
  while (!left.empty()) {
    const std::string part = takeFirst(left);
    if (part.empty() || part == ".") continue;
    if (part == "..") {
      // Above the root there is nothing.
      reached.erase(reached.empty() ? 0 : reached.rfind('/'));
      continue;
    }
    std::string next = reached;
    next.append("/").append(part);
    const std::optional<std::string> target = targetOfLink(_root + next);
    if (target && ++links <= mostLinks) {
      if (target->starts_with('/')) reached.clear();
      left.insert(0, *target + "/");
    } else {
      reached = std::move(next);
    }
  }
  return _root + reached;
}

}  // namespace toolsystem
