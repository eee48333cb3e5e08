// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "tools/logs/message_filter.h"
#include "tools/system/log_file.h"

namespace qmrkctl {

/// Searches a log from its end for the beginning of its last lines, so that only the end of a huge file is read. The
/// files of the log are scanned from the newest to the oldest until it is found.
class BackwardScan {
 public:
  static constexpr std::uint64_t allLines = std::numeric_limits<std::uint64_t>::max();

  /// @param _wanted how many of the lines that the query asks for.
  BackwardScan(MessageQuery _query, std::uint64_t _wanted)
      : query_(std::move(_query)), wanted_(_wanted), isDone_(_wanted == 0) {}

  /// Whether older files hold nothing that is wanted.
  bool isDone() const { return isDone_; }

  /// @return where to begin to read in this file. From there on may come some more lines than wanted.
  std::int64_t scan(const toolsystem::LogFile& _file);

 private:
  /// Of the line before those that came; gets its beginning.
  void onLine(std::string_view _line);

  MessageQuery query_;
  std::uint64_t wanted_;
  std::uint64_t found_ = 0;
  std::uint64_t continued_ = 0;  ///< lines whose message is not known yet
  std::int64_t seen_ = 0;        ///< bytes
  bool isDone_;
};

}  // namespace qmrkctl
