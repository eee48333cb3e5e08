// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/file_bytes.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/text_file.h"
#include "tools/system/log_file.h"

namespace qmrkctl {
namespace {

constexpr std::size_t stepSize = 65'536;

}  // namespace

std::optional<std::string> bytesOfFile(const std::string& _path) {
  toolsystem::LogFile file;
  if (file.open(_path) != toolsystem::OpenResult::opened) return std::nullopt;
  std::string bytes;
  std::size_t size = 0;
  std::size_t got = 0;
  do {
    bytes.resize(size + stepSize);
    got = file.readAt(static_cast<std::int64_t>(size), &bytes[size], stepSize);
    size += got;
  } while (got > 0 && size <= static_cast<std::size_t>(platform::largestTextFile));
  bytes.resize(size);
  // Who changes what was read in part would lose the rest.
  const bool isWhole = got == 0 && file.size() <= static_cast<std::int64_t>(size);
  return isWhole ? std::optional<std::string>(std::move(bytes)) : std::nullopt;
}

}  // namespace qmrkctl
