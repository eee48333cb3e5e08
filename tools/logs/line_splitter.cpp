// SPDX-License-Identifier: MIT
#include "tools/logs/line_splitter.h"

#include <algorithm>
#include <utility>

namespace qmrkctl {

std::string LineSplitter::takeLine() {
  std::string line = std::exchange(line_, {});
  const std::size_t cut = std::exchange(cut_, 0);
  if (cut > 0) return line + " ... [" + std::to_string(cut) + " more bytes]";
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

void LineSplitter::append(std::string_view _bytes) {
  const std::size_t room = longestLine - line_.size();
  line_ += _bytes.substr(0, room);
  cut_ += _bytes.size() - std::min(room, _bytes.size());
}

}  // namespace qmrkctl
