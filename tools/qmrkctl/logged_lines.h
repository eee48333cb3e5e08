// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "tools/system/log_file.h"

namespace qmrkctl {

/// What was written to a log.
struct LineCount {
  std::map<std::string, int> byClass;           ///< lines, by the class at their beginning
  std::map<std::string, std::int64_t> bytesBy;  ///< the same in bytes
};

/// The class at the beginning of a line of the default set-up, "[name] ..."; empty if there is none.
std::string_view classOfLine(std::string_view _line);

/// Counts lines added to a log after the construction. Follows the log when it is removed or rotated. For one thread.
class LoggedLines {
 public:
  /// @param _path with separators of either kind; the file need not exist yet.
  explicit LoggedLines(const std::string& _path);

  /// Moves back by that many bytes, at most to the beginning of the file.
  void goBack(std::int64_t _bytes);

  /// The complete lines since the last call. Lines without a class are not counted, nor those longer than 1 MiB.
  LineCount newLines();

 private:
  std::string path_;
  toolsystem::LogFile file_;
  std::int64_t place_ = 0;
  std::string begun_;  ///< of a line that is not complete yet
};

}  // namespace qmrkctl
