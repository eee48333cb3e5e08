// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "tools/logs/civil_time.h"

namespace qmrkctl {

/// The first line of a message in a log. Views of the line.
struct LogLine {
  std::string_view logClass;
  CivilTime time = 0;
  std::string_view text;
};

/// "[Demo.App.info] 20261121 10:00:00.123 text", with or without milliseconds. A line of any other form continues the
/// message of the line before.
/// @param _line without its line end; its beginning will do.
std::optional<LogLine> parseLogLine(std::string_view _line);

/// How severe a message is, by the last part of its class.
enum class Gravity { normal, error, warning, detail };

/// "Demo.App.error" is an error; letter case does not matter.
Gravity gravityOf(std::string_view _logClass);

}  // namespace qmrkctl
