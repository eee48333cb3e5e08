// SPDX-License-Identifier: MIT
#include "logmanager/appenders/exception_report.h"

#include <atomic>
#include <exception>
#include <mutex>

#include "logmanager/threads/process_lock.h"
#include "platform/clock.h"
#include "platform/standard_error.h"

namespace boost::logging::detail {
namespace {

constexpr std::int64_t MINUTE = 60000;

constinit std::atomic<std::uint64_t> allCount{0};
constinit ProcessLock reportLock;
constinit OncePerMinute exceptions;
constinit OncePerMinute drops;

std::uint64_t countToTell(OncePerMinute& _reports) {
  const std::int64_t now = platform::steadyMilliseconds();
  const std::lock_guard<ProcessLock> lock(reportLock);
  return _reports.happened(now);
}

std::string currentExceptionText() {
  try {
    throw;
  } catch (const std::exception& exception) {
    const char* const what = exception.what();
    return what != nullptr ? what : "";
  } catch (...) {
    return "unknown exception";
  }
}

void report(const std::string& _what) {
  const std::uint64_t count = countToTell(exceptions);
  if (count == 0) return;
  platform::writeStandardError("boost::logging: " + std::to_string(count) +
                               (count == 1 ? " exception" : " exceptions") +
                               " in appenders and modifiers; the last: " + _what + "\n");
}

}  // namespace

std::uint64_t OncePerMinute::happened(std::int64_t _now, std::uint64_t _times) {
  count_ += _times;
  if (isTold_ && _now - toldAt_ < MINUTE) return 0;
  isTold_ = true;
  toldAt_ = _now;
  const std::uint64_t count = count_;
  count_ = 0;
  return count;
}

void reportException(const std::string& _callable, const std::string& _logName) noexcept {
  allCount.fetch_add(1, std::memory_order_relaxed);
  try {
    report("\"" + _callable + "\", log \"" + _logName + "\": " + currentExceptionText());
  } catch (...) {
    // No memory to tell of it.
  }
}

void reportEndlessLogging(const std::string& _logName) noexcept {
  allCount.fetch_add(1, std::memory_order_relaxed);
  try {
    report("log \"" + _logName + "\": a message is logged while another is, without end");
  } catch (...) {
    // No memory to tell of it.
  }
}

void reportDropped(const std::string& _callable, const std::string& _logName) noexcept {
  try {
    const std::uint64_t count = countToTell(drops);
    if (count == 0) return;
    platform::writeStandardError("boost::logging: " + std::to_string(count) + (count == 1 ? " message" : " messages") +
                                 " dropped, since too many wait for an appender that was entered; the last: \"" +
                                 _callable + "\", log \"" + _logName + "\"\n");
  } catch (...) {
    // No memory to tell of it.
  }
}

std::uint64_t exceptionCount() { return allCount.load(std::memory_order_relaxed); }

}  // namespace boost::logging::detail
