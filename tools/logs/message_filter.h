// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/logs/log_line.h"

namespace qmrkctl {

/// Selects messages of a log.
struct MessageQuery {
  /// Patterns of classes, by the log manager's rules; empty: all classes.
  std::vector<std::string> classes;
  std::optional<CivilTime> since;
  /// How many bytes to search back from the end of a log.
  std::int64_t farthest = std::numeric_limits<std::int64_t>::max();

  bool asksForAll() const { return classes.empty() && !since; }

  /// Whether it selects the message with this first line.
  bool matches(const LogLine& _line) const;
};

/// The patterns in a list, whose entries end with ";"; the last one need not.
std::vector<std::string> patternsOf(const std::string& _list);

/// Filters the lines of a log, fed from first to last. A line that continues a message shares its fate. For one thread.
class MessageFilter {
 public:
  explicit MessageFilter(MessageQuery _query) : query_(std::move(_query)), isAccepted_(query_.asksForAll()) {}

  /// Whether the query selects the next line.
  /// @param _line without its line end.
  bool accepts(std::string_view _line);

  // The message to which the latest line belongs.

  const std::string& logClass() const { return logClass_; }  ///< empty: the line belongs to none
  CivilTime time() const { return time_; }                   ///< 0: the line belongs to none

 private:
  MessageQuery query_;
  bool isAccepted_;
  std::string logClass_;
  CivilTime time_ = 0;
};

}  // namespace qmrkctl
