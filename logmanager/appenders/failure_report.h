// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/errors.h"

namespace boost::logging::detail {

// What the manager reports on standard error, since there is nobody else to report it to. Any thread may call.

/// Decides when something that happens often is reported: the first time at once, then at most once a minute with the
/// number of times since. A value.
class OncePerMinute {
 public:
  /// @param _now a clock that never goes back, in milliseconds.
  /// @param _times how often it happened now.
  /// @return 0 when it is not to be reported now, else how often it happened since it last was, this time included.
  std::uint64_t happened(std::int64_t _now, std::uint64_t _times = 1);

 private:
  bool isReported_ = false;
  std::int64_t reportedAt_ = 0;
  std::uint64_t count_ = 0;
};

/// Counts the exception that is being handled, to be called in a handler, and reports it.
/// @param _callable the name under which the callable was added.
void reportException(const std::string& _callable, const std::string& _logName) noexcept;

/// The same for a message that callables log for ever by logging their own messages.
void reportEndlessLogging(const std::string& _logName) noexcept;

/// Counts a message that an appender logged to another one, which was entered and had too many waiting, and reports it.
void reportDropped(const std::string& _callable, const std::string& _logName) noexcept;

/// Counts messages that could not be written to a file, and reports them, at most once a minute for each file.
/// @param _path names the file; many writers of a file may use the same.
/// @param _error why the last one could not be written.
void reportLoss(const std::string& _path, std::uint64_t _count, platform::ErrorCode _error) noexcept;

/// How many exceptions and endless messages there were in the process.
std::uint64_t exceptionCount();

}  // namespace boost::logging::detail
