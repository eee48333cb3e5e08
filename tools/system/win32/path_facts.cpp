// SPDX-License-Identifier: MIT
#include "tools/system/path_facts.h"

#include "platform/win32/windows_api.h"

namespace toolsystem {

PathFacts factsOf(const std::string& _path) {
  PathFacts facts;
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (::GetFileAttributesExA(_path.c_str(), GetFileExInfoStandard, &data) == 0) return facts;
  const bool isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  facts.kind = isFolder ? PathKind::folder : PathKind::file;
  facts.isLink = (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  // In units of 100 ns since 1601.
  constexpr std::int64_t unixEpoch = 116'444'736'000'000'000;
  const FILETIME& written = data.ftLastWriteTime;
  const std::int64_t ticks = static_cast<std::int64_t>(written.dwHighDateTime) << 32U | written.dwLowDateTime;
  facts.writtenAt = (ticks - unixEpoch) * 100;
  facts.size = static_cast<std::int64_t>(data.nFileSizeHigh) << 32U | data.nFileSizeLow;
  return facts;
}

std::optional<FolderGroup> groupOfFolder(const std::string& /*_folder*/) { return std::nullopt; }

std::optional<std::uint64_t> freeBytes(const std::string& _path) {
  ULARGE_INTEGER free{};
  if (::GetDiskFreeSpaceExA(_path.c_str(), &free, nullptr, nullptr) == 0) return std::nullopt;
  return free.QuadPart;
}

std::optional<std::uint64_t> freeFiles(const std::string& /*_path*/) { return std::nullopt; }

}  // namespace toolsystem
