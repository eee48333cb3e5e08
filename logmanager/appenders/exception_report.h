// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace boost::logging::detail {

/// Decides when something that happens often is told: the first time at once, then at most once a minute with the
/// number of times since. A value.
class OncePerMinute {
 public:
  /// @param _now a clock that never goes back, in milliseconds.
  /// @param _times how often it happened now.
  /// @return 0 when it is not to be told now, else how often it happened since it was last told, this time included.
  std::uint64_t happened(std::int64_t _now, std::uint64_t _times = 1);

 private:
  bool isTold_ = false;
  std::int64_t toldAt_ = 0;
  std::uint64_t count_ = 0;
};

/// Counts the exception that is being handled, to be called in a handler, and tells of it on the standard error stream.
/// @param _callable the name under which the callable was added.
void reportException(const std::string& _callable, const std::string& _logName) noexcept;

/// The same for a message that callables log for ever by logging their own messages.
void reportEndlessLogging(const std::string& _logName) noexcept;

/// Counts a message that an appender logged to another one, which was entered and had too many waiting, and tells of it
/// on the standard error stream in the same way.
void reportDropped(const std::string& _callable, const std::string& _logName) noexcept;

/// How many exceptions and endless messages there were in the process.
std::uint64_t exceptionCount();

}  // namespace boost::logging::detail
