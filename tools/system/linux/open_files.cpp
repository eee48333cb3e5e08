// SPDX-License-Identifier: MIT
#include "tools/system/open_files.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <memory>

namespace toolsystem {

std::optional<std::vector<std::string>> filesOpenForWriting(std::uint32_t _pid) {
  const std::string folder = "/proc/" + std::to_string(_pid) + "/fd/";
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::opendir(folder.c_str()), &::closedir);
  if (list == nullptr) return std::nullopt;
  std::vector<std::string> files;
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr; entry = ::readdir(list.get())) {
    const std::string link = folder + entry->d_name;
    struct stat status {};
    // The mode of the link is that of the opening.
    const bool isWritten =
        ::lstat(link.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && (status.st_mode & S_IWUSR) != 0;
    if (!isWritten) continue;
    std::array<char, PATH_MAX> path{};
    const ssize_t size = ::readlink(link.c_str(), path.data(), path.size());
    if (size > 0) files.emplace_back(path.data(), static_cast<std::size_t>(size));
  }
  return files;
}

}  // namespace toolsystem
