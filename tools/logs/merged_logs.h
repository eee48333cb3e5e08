// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "tools/logs/log_reader.h"

namespace qmrkctl {

/// A line of one of several logs, with the message to which it belongs.
struct MergedLine {
  std::size_t log = 0;  ///< index of its log
  std::string text;
  std::string logClass;  ///< empty: the line belongs to no message
  CivilTime time = 0;
};

/// The lines of several logs that a query selects, sorted by time. For one thread.
class MergedLogs {
 public:
  /// Opens nothing yet.
  /// @param _paths with separators of either kind.
  MergedLogs(const std::vector<std::string>& _paths, MessageQuery _query);

  /// Opens the logs, each at the beginning of its last _lines lines.
  /// @return the result for each; missing if not even a backup exists.
  std::vector<toolsystem::OpenResult> begin(std::uint64_t _lines);

  /// Takes the next line. Lines of one log keep their order.
  /// @return false if there is none now; the line is then untouched.
  bool next(MergedLine& _line);

  /// Takes an unfinished line to which nothing was added during that many calls of refresh.
  /// @return false if there is none.
  bool takeFragment(MergedLine& _line, int _idleRefreshes);

  /// Looks for new, renamed and emptied files. Call it when next() returns false.
  void refresh();

 private:
  struct Source {
    LogReader reader;
    MessageFilter filter;
    std::optional<MergedLine> line;  ///< read but not taken yet
  };

  static bool isAccepted(Source& _source, std::size_t _log, std::string& _text, MergedLine& _line);
  void readAhead(std::size_t _log);

  MessageQuery query_;
  std::deque<Source> sources_;
};

}  // namespace qmrkctl
