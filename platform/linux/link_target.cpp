// SPDX-License-Identifier: MIT
#include "platform/linux/link_target.h"

#include <linux/limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace platform {
namespace {

constexpr mode_t writableByOthers = S_IWGRP | S_IWOTH;
// As many as the system itself follows.
constexpr int mostLinks = 40;

bool mayHoldLinks(const std::string& _folder) {
  struct stat status {};
  if (::stat(_folder.c_str(), &status) != 0) return false;
  const bool isTrusted = status.st_uid == ::geteuid() || status.st_uid == 0;
  if (isTrusted && (status.st_mode & writableByOthers) == 0) return true;
  errno = EACCES;
  return false;
}

bool isLink(const std::string& _path) {
  struct stat status {};
  return ::lstat(_path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

std::string textOfLink(const std::string& _path) {
  std::array<char, PATH_MAX> text;
  const ssize_t size = ::readlink(_path.c_str(), text.data(), text.size());
  return size < 0 ? std::string() : std::string(text.data(), static_cast<std::size_t>(size));
}

// A path that is walked name by name: the folder that was reached, and what is left to walk.
struct Way {
  std::string folder;
  std::string rest;

  // Goes to the beginning of a text, which says where to go on from the folder.
  void follow(const std::string& _text) {
    if (_text.front() == '/') folder = "/";
    rest = rest.empty() ? _text : _text + "/" + rest;
  }

  std::string takeName() {
    const std::size_t begin = rest.find_first_not_of('/');
    if (begin == std::string::npos) {
      rest.clear();
      return {};
    }
    const std::size_t end = rest.find('/', begin);
    std::string name = rest.substr(begin, end - begin);
    rest = end == std::string::npos ? std::string() : rest.substr(end);
    return name;
  }
};

Way wayTo(const std::string& _path) {
  const std::size_t nameBegin = _path.find_last_of('/');
  if (nameBegin == std::string::npos) return {".", _path};
  return {nameBegin == 0 ? "/" : _path.substr(0, nameBegin), _path.substr(nameBegin)};
}

}  // namespace

std::string targetOfTrustedLink(const std::string& _nativePath) {
  Way way = wayTo(_nativePath);
  for (int links = 0; !way.rest.empty();) {
    const std::string reached = way.folder + "/" + way.takeName();
    if (!isLink(reached)) {
      way.folder = reached;
      continue;
    }
    if (++links > mostLinks) {
      errno = ELOOP;
      return {};
    }
    if (!mayHoldLinks(way.folder)) return {};
    const std::string text = textOfLink(reached);
    if (text.empty()) return {};
    way.follow(text);
  }
  return way.folder;
}

}  // namespace platform
