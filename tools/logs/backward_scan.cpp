// SPDX-License-Identifier: MIT
#include "tools/logs/backward_scan.h"

#include <algorithm>
#include <string>

namespace qmrkctl {
namespace {

constexpr std::int64_t blockSize = std::int64_t{256} * 1024;
// Enough of a line for the name of its class and its stamp.
constexpr std::size_t beginningSize = 1024;
// In lines.
constexpr std::uint64_t longestMessage = 1000;
// Threads and processes do not write in the strict order of their stamps.
constexpr CivilTime disorder = 10'000;

std::string blockOf(const toolsystem::LogFile& _file, std::int64_t _begin, std::int64_t _end) {
  std::string block(static_cast<std::size_t>(_end - _begin), '\0');
  block.resize(_file.readAt(_begin, block.data(), block.size()));
  return block;
}

}  // namespace

void BackwardScan::onLine(std::string_view _line) {
  ++continued_;
  const std::optional<LogLine> first = parseLogLine(_line);
  if (!first) {
    // In a log of another form no line is the first one of a message.
    isDone_ = query_.asksForAll() && found_ + continued_ >= wanted_ && continued_ >= longestMessage;
    return;
  }
  if (query_.matches(*first)) found_ += continued_;
  continued_ = 0;
  isDone_ = found_ >= wanted_ || (query_.since && first->time < *query_.since - disorder);
}

std::int64_t BackwardScan::scan(const toolsystem::LogFile& _file) {
  std::int64_t end = _file.size();
  if (isDone_ || end <= 0) return std::max<std::int64_t>(0, end);
  // What follows the block, as far as a line that begins in the block needs it.
  std::string following;
  // The line end at the very end begins no line.
  bool isFirst = true;
  while (end > 0) {
    const std::int64_t begin = std::max<std::int64_t>(0, end - blockSize);
    std::string block = blockOf(_file, begin, end);
    std::size_t limit = block.size();
    if (isFirst && block.ends_with('\n')) --limit;
    isFirst = false;
    block += following;
    while (limit > 0) {
      const std::size_t lineEnd = block.rfind('\n', limit - 1);
      if (lineEnd == std::string::npos) break;
      onLine(std::string_view(block).substr(lineEnd + 1, beginningSize));
      if (isDone_) return begin + static_cast<std::int64_t>(lineEnd) + 1;
      limit = lineEnd;
    }
    following = block.substr(0, beginningSize);
    seen_ += end - begin;
    end = begin;
    if (seen_ >= query_.farthest) {
      isDone_ = true;
      return begin;
    }
  }
  onLine(following);
  return 0;
}

}  // namespace qmrkctl
