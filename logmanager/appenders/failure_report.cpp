// SPDX-License-Identifier: MIT
#include "logmanager/appenders/failure_report.h"

#include <atomic>
#include <exception>
#include <unordered_map>

#include "logmanager/threads/process_lock.h"
#include "platform/clock.h"
#include "platform/standard_error.h"

namespace boost::logging::detail {
namespace {

constexpr std::int64_t minute = 60000;

/// Files beyond that are reported as one, so that the table is bounded.
constexpr std::size_t mostReportedFiles = 1000;

struct Reports {
  OncePerMinute exceptions;
  OncePerMinute drops;
  std::unordered_map<std::string, OncePerMinute> losses;
};

constinit std::atomic<std::uint64_t> allCount{0};
constinit ProcessLock reportsLock;
/// Never destroyed.
constinit Reports* reports = nullptr;

/// Holds the reports. A forked child does not use what a thread of the parent may have been changing.
class ReportsScope {
 public:
  ReportsScope() {
    if (!reportsLock.lock()) reports = nullptr;
  }
  ~ReportsScope() { reportsLock.unlock(); }
  ReportsScope(const ReportsScope&) = delete;
  ReportsScope& operator=(const ReportsScope&) = delete;

  Reports& all() const {
    if (reports == nullptr) reports = new Reports;
    return *reports;
  }
};

std::string counted(std::uint64_t _count, const char* _what) {
  return std::to_string(_count) + " " + _what + (_count == 1 ? "" : "s");
}

/// Reports the line that is made of the count, where it is due. Nothing without memory for it.
/// @param _happened counts in the reports, as OncePerMinute::happened does.
template <typename Happened, typename MakeLine>
void report(Happened _happened, MakeLine _makeLine) noexcept {
  try {
    const std::int64_t now = platform::steadyMilliseconds();
    std::uint64_t count = 0;
    {
      const ReportsScope scope;
      count = _happened(scope.all(), now);
    }
    if (count > 0) platform::writeStandardError("boost::logging: " + _makeLine(count) + "\n");
  } catch (...) {
  }
}

template <typename Describe>
void reportInCallable(Describe _describe) noexcept {
  allCount.fetch_add(1, std::memory_order_relaxed);
  report([](Reports& _reports, std::int64_t _now) { return _reports.exceptions.happened(_now); },
         [&](std::uint64_t _count) {
           return counted(_count, "exception") + " in appenders and modifiers; the last: " + _describe();
         });
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

}  // namespace

std::uint64_t OncePerMinute::happened(std::int64_t _now, std::uint64_t _times) {
  count_ += _times;
  if (isReported_ && _now - reportedAt_ < minute) return 0;
  isReported_ = true;
  reportedAt_ = _now;
  const std::uint64_t count = count_;
  count_ = 0;
  return count;
}

void reportException(const std::string& _callable, const std::string& _logName) noexcept {
  reportInCallable([&] { return "\"" + _callable + "\", log \"" + _logName + "\": " + currentExceptionText(); });
}

void reportEndlessLogging(const std::string& _logName) noexcept {
  reportInCallable([&] { return "log \"" + _logName + "\": a message is logged while another is, without end"; });
}

void reportDropped(const std::string& _callable, const std::string& _logName) noexcept {
  report([](Reports& _reports, std::int64_t _now) { return _reports.drops.happened(_now); },
         [&](std::uint64_t _count) {
           return counted(_count, "message") +
                  " dropped, since too many wait for an appender that was entered; the last: \"" + _callable +
                  "\", log \"" + _logName + "\"";
         });
}

void reportLoss(const std::string& _path, std::uint64_t _count, platform::ErrorCode _error) noexcept {
  const auto happened = [&](Reports& _reports, std::int64_t _now) {
    const bool isListed = _reports.losses.size() < mostReportedFiles || _reports.losses.contains(_path);
    return _reports.losses[isListed ? _path : std::string()].happened(_now, _count);
  };
  report(happened, [&](std::uint64_t _all) {
    return counted(_all, "message") + " could not be written to " + _path + ", error " + std::to_string(_error);
  });
}

std::uint64_t exceptionCount() { return allCount.load(std::memory_order_relaxed); }

}  // namespace boost::logging::detail
