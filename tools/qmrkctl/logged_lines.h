// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "tools/system/log_file.h"

namespace qmrkctl {

/// What came into a log.
struct LineCount {
  std::map<std::string, int> byClass;           ///< lines, by the name of the log in front of them
  std::map<std::string, std::int64_t> bytesBy;  ///< the same in bytes
};

/// The name in front of a line of the default set-up, "[name] ..."; empty: it has none.
std::string_view classOfLine(std::string_view _line);

/// Counts the lines of a log, from its end on. Follows it when it is removed or rotated.
class LoggedLines {
 public:
  /// @param _path with separators of either kind; it need not be there yet.
  explicit LoggedLines(const std::string& _path);

  /// So many bytes back from where it is.
  void goBack(std::int64_t _bytes);

  /// The whole lines that came since the last call.
  LineCount newLines();

 private:
  std::string path_;
  toolsystem::LogFile file_;
  std::int64_t place_ = 0;
  std::string begun_;  ///< of a line that is not whole yet
};

}  // namespace qmrkctl
