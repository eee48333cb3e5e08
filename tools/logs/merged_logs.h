// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "tools/logs/log_reader.h"

namespace qmrkctl {

/// A line of one of several logs, with what is known of the message to which it belongs.
struct MergedLine {
  std::size_t log = 0;  ///< index of its log
  std::string text;
  std::string logClass;  ///< empty: the line belongs to no message
  CivilTime time = 0;
};

/// The lines of several logs that a query asks for, in the order of their times. For one thread.
class MergedLogs {
 public:
  MergedLogs(const std::vector<std::string>& _paths, MessageQuery _query);

  /// Opens the logs, each at the beginning of that many last lines.
  /// @return what became of each; missing, where not even a backup is there.
  std::vector<toolsystem::OpenResult> begin(std::uint64_t _lines);

  /// Takes the next line. Lines of one log keep their order.
  bool next(MergedLine& _line);

  /// Takes a line whose end has not come during that many calls of refresh.
  bool takeFragment(MergedLine& _line, int _idleRefreshes);

  /// Finds out what became of the logs.
  void refresh();

 private:
  struct Source {
    LogReader reader;
    MessageFilter filter;
    std::optional<MergedLine> line;  ///< read and not taken yet
  };

  static bool isAccepted(Source& _source, std::size_t _log, std::string& _text, MergedLine& _line);
  void readAhead(std::size_t _log);

  MessageQuery query_;
  std::deque<Source> sources_;
};

}  // namespace qmrkctl
