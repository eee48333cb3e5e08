// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "tools/logs/message_filter.h"
#include "tools/system/log_file.h"

namespace qmrkctl {

/// Searches a log backwards for the beginning of its last lines, so that only the end of a huge file is read. Scan the
/// files of the log from the newest to the oldest. For one thread.
class BackwardScan {
 public:
  static constexpr std::uint64_t allLines = std::numeric_limits<std::uint64_t>::max();

  /// @param _wanted how many of the lines that the query selects.
  BackwardScan(MessageQuery _query, std::uint64_t _wanted)
      : query_(std::move(_query)), wanted_(_wanted), isDone_(_wanted == 0) {}

  /// Whether the beginning is found, so that older files hold nothing wanted.
  bool isDone() const { return isDone_; }

  /// Scans the next older file.
  /// @return the offset at which to begin reading it; some more lines than wanted may follow.
  std::int64_t scan(const toolsystem::LogFile& _file);

 private:
  /// Takes the line before the previous one, or its beginning.
  void onLine(std::string_view _line);

  MessageQuery query_;
  std::uint64_t wanted_;
  std::uint64_t found_ = 0;
  std::uint64_t continued_ = 0;  ///< lines whose message is still unknown
  std::int64_t seen_ = 0;        ///< bytes
  bool isDone_;
};

}  // namespace qmrkctl
