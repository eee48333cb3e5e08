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

/// Which messages of a log are asked for.
struct MessageQuery {
  /// Patterns of classes, by the rules of the log manager; none: all classes.
  std::vector<std::string> classes;
  std::optional<CivilTime> since;
  /// How many bytes to look back from the end of a log.
  std::int64_t farthest = std::numeric_limits<std::int64_t>::max();

  bool asksForAll() const { return classes.empty() && !since; }

  /// Whether a message with this first line is among them.
  bool matches(const LogLine& _line) const;
};

/// The patterns of a list: entries that end with ";", which the last one may lack.
std::vector<std::string> patternsOf(const std::string& _list);

/// Goes through the lines of a log from front to back. A line that continues a message goes with it.
class MessageFilter {
 public:
  explicit MessageFilter(MessageQuery _query) : query_(std::move(_query)), isAccepted_(query_.asksForAll()) {}

  /// Whether the next line is asked for.
  bool accepts(std::string_view _line);

  // Of the message to which the latest line belongs.

  const std::string& logClass() const { return logClass_; }  ///< empty: the line belongs to none
  CivilTime time() const { return time_; }                   ///< 0: the line belongs to none

 private:
  MessageQuery query_;
  bool isAccepted_;
  std::string logClass_;
  CivilTime time_ = 0;
};

}  // namespace qmrkctl
