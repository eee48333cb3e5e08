// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "tools/logs/civil_time.h"

namespace qmrkctl {

/// The first line of a message in a log; views into that line.
struct LogLine {
  std::string_view logClass;
  CivilTime time = 0;
  std::string_view text;
};

/// Parses "[Demo.App.info] 20261121 10:00:00.123 text", with or without milliseconds.
/// @param _line without its line end; its beginning is enough.
/// @return no value for any other line, which continues the message of the line before.
std::optional<LogLine> parseLogLine(std::string_view _line);

/// How severe a message is, judged by the last part of its class.
enum class Gravity { normal, error, warning, detail };

/// "Demo.App.error" is an error, in any letter case.
Gravity gravityOf(std::string_view _logClass);

}  // namespace qmrkctl
