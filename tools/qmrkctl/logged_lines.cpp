// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/logged_lines.h"

#include <algorithm>
#include <array>

namespace qmrkctl {
namespace {

constexpr std::size_t longestLine = 1 << 20;

void countLine(std::string_view _line, LineCount& _count) {
  const std::string name(classOfLine(_line));
  if (name.empty()) return;
  ++_count.byClass[name];
  _count.bytesBy[name] += static_cast<std::int64_t>(_line.size()) + 1;
}

}  // namespace

std::string_view classOfLine(std::string_view _line) {
  if (!_line.starts_with('[')) return {};
  const std::size_t end = _line.find(']');
  return end == std::string_view::npos ? std::string_view() : _line.substr(1, end - 1);
}

LoggedLines::LoggedLines(const std::string& _path) : path_(_path) {
  file_.open(path_);
  place_ = std::max<std::int64_t>(file_.isOpen() ? file_.size() : 0, 0);
}

void LoggedLines::goBack(std::int64_t _bytes) { place_ = std::max<std::int64_t>(place_ - _bytes, 0); }

LineCount LoggedLines::newLines() {
  LineCount count;
  const bool isReplaced = !file_.isOpen() || !(toolsystem::fileIdAt(path_) == file_.id());
  std::array<char, 65'536> part{};
  for (;;) {
    const std::size_t size = file_.isOpen() ? file_.readAt(place_, part.data(), part.size()) : 0;
    if (size == 0) break;
    place_ += static_cast<std::int64_t>(size);
    begun_.append(part.data(), size);
    std::size_t begin = 0;
    for (std::size_t end = begun_.find('\n'); end != std::string::npos; end = begun_.find('\n', begin)) {
      countLine(std::string_view(begun_).substr(begin, end - begin), count);
      begin = end + 1;
    }
    begun_.erase(0, begin);
    if (begun_.size() > longestLine) begun_.clear();
  }
  if (isReplaced && file_.open(path_) == toolsystem::OpenResult::opened) {
    place_ = 0;
    begun_.clear();
  }
  return count;
}

}  // namespace qmrkctl
