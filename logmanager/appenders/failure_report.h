// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/errors.h"

namespace boost::logging::detail {

// What the manager reports on standard error, for lack of anybody else to report it to. Any thread may call.

/// Decides when to report something that happens often: the first time at once, then at most once per minute with the
/// number of times since. A value.
class OncePerMinute {
 public:
  /// @param _now a clock that never goes back, in milliseconds.
  /// @param _times how often it happened now.
  /// @return 0 when there is nothing to report now, else how often it happened since the last report, including now.
  std::uint64_t happened(std::int64_t _now, std::uint64_t _times = 1);

 private:
  bool isReported_ = false;
  std::int64_t reportedAt_ = 0;
  std::uint64_t count_ = 0;
};

/// Counts and reports the exception that is being handled. Call it in a handler.
/// @param _callable the name under which the callable was added.
void reportException(const std::string& _callable, const std::string& _logName) noexcept;

/// The same for a message that would never end, because callables log their own messages.
void reportEndlessLogging(const std::string& _logName) noexcept;

/// Counts and reports a message that an appender logged to another one, which was in use and had too many waiting.
void reportDropped(const std::string& _callable, const std::string& _logName) noexcept;

/// Counts messages that could not be written to a file, and reports them at most once per minute and file.
/// @param _path names the file, for all of its writers.
/// @param _error why the last one could not be written.
void reportLoss(const std::string& _path, std::uint64_t _count, platform::ErrorCode _error) noexcept;

/// How many exceptions and endless messages there were in the process.
std::uint64_t exceptionCount();

}  // namespace boost::logging::detail
