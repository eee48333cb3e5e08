// SPDX-License-Identifier: MIT
// Any bytes of a log, in pieces: the lines are those of the whole, and the parts of a first line of a message, written
// again, are that line.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tools/logs/line_splitter.h"
#include "tools/logs/log_line.h"

namespace {

using qmrkctl::LineSplitter;

void expect(bool _condition) {
  if (!_condition) std::abort();
}

std::vector<std::string> linesOf(std::string_view _bytes, std::size_t _piece) {
  LineSplitter splitter;
  std::vector<std::string> lines;
  for (; !_bytes.empty(); _bytes.remove_prefix(std::min(_piece, _bytes.size())))
    splitter.feed(_bytes.substr(0, _piece), [&lines](const std::string& _line) { lines.push_back(_line); });
  lines.push_back(splitter.takeLine());
  return lines;
}

// "20261121 10:00:00" of "2026-11-21 10:00:00".
std::string stampOf(qmrkctl::CivilTime _time) {
  const std::string text = qmrkctl::civilText(_time);
  return text.substr(0, 4) + text.substr(5, 2) + text.substr(8);
}

std::string millisecondsOf(qmrkctl::CivilTime _time) {
  char text[8];
  std::snprintf(text, sizeof text, ".%03d", static_cast<int>(_time % 1000));
  return text;
}

void checkParts(const std::string& _line) {
  const auto first = qmrkctl::parseLogLine(_line);
  if (!first) return;
  const std::string beginning = "[" + std::string(first->logClass) + "] ";
  expect(_line.starts_with(beginning) && _line.ends_with(first->text));
  std::string stamp = _line.substr(beginning.size(), _line.size() - beginning.size() - first->text.size());
  if (stamp.ends_with(' ')) stamp.pop_back();
  // The leap second is the first one of the next minute.
  if (stamp.size() >= 17 && stamp.substr(15, 2) == "60") return;
  expect(stamp == stampOf(first->time) || stamp == stampOf(first->time) + millisecondsOf(first->time));
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  if (_size == 0) return 0;
  const std::string bytes(_data + 1, _data + _size);
  const std::vector<std::string> lines = linesOf(bytes, bytes.size() + 1);
  expect(lines == linesOf(bytes, _data[0] % 16U + 1U));
  for (const std::string& line : lines)
    checkParts(line);
  return 0;
}
