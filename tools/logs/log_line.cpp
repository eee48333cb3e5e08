// SPDX-License-Identifier: MIT
#include "tools/logs/log_line.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "tools/logs/text_scanner.h"

namespace qmrkctl {
namespace {

// "20261121 10:00:00.123 ", and at the end of a line also without the blank.
bool takeStamp(TextScanner& _scanner, CivilTime& _time) {
  platform::LocalTime time;
  const bool isStamp = _scanner.takeNumber(4, time.year) && _scanner.takeNumber(2, time.month) &&
                       _scanner.takeNumber(2, time.day) && _scanner.take(" ") && _scanner.takeNumber(2, time.hour) &&
                       _scanner.take(":") && _scanner.takeNumber(2, time.minute) && _scanner.take(":") &&
                       _scanner.takeNumber(2, time.second);
  if (!isStamp) return false;
  if (_scanner.take(".") && !_scanner.takeNumber(3, time.millisecond)) return false;
  if (!_scanner.take(" ") && !_scanner.isAtEnd()) return false;
  const std::optional<CivilTime> civil = civilTime(time);
  _time = civil.value_or(0);
  return civil.has_value();
}

}  // namespace

std::optional<LogLine> parseLogLine(std::string_view _line) {
  if (!_line.starts_with('[')) return {};
  // A class may have any name, one with a bracket too.
  for (auto end = _line.find("] "); end != std::string_view::npos; end = _line.find("] ", end + 1)) {
    TextScanner scanner(_line.substr(end + 2));
    LogLine line;
    if (!takeStamp(scanner, line.time)) continue;
    line.logClass = _line.substr(1, end - 1);
    line.text = scanner.rest();
    return line;
  }
  return {};
}

Gravity gravityOf(std::string_view _logClass) {
  std::string last(_logClass.substr(_logClass.rfind('.') + 1));
  std::ranges::transform(last, last.begin(), [](unsigned char _c) { return static_cast<char>(std::tolower(_c)); });
  const auto isOneOf = [&last](std::initializer_list<std::string_view> _names) {
    return std::ranges::find(_names, last) != _names.end();
  };
  if (isOneOf({"error", "err", "fatal", "critical", "alarm"})) return Gravity::error;
  if (isOneOf({"warn", "warning"})) return Gravity::warning;
  if (isOneOf({"debug", "trace", "verbose", "detail"})) return Gravity::detail;
  return Gravity::normal;
}

}  // namespace qmrkctl
