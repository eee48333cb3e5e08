// SPDX-License-Identifier: MIT
#include "logmanager/appenders/loss_report.h"

#include <cstdint>
#include <mutex>
#include <unordered_map>

#include "logmanager/appenders/exception_report.h"
#include "logmanager/threads/process_lock.h"
#include "platform/cancellation.h"
#include "platform/clock.h"
#include "platform/standard_error.h"

namespace boost::logging::detail {
namespace {

/// Files beyond that are reported as one, so that the table is bounded.
constexpr std::size_t MOST_FILES = 1000;

using Reports = std::unordered_map<std::string, OncePerMinute>;

constinit ProcessLock reportsLock;
/// Never destroyed.
constinit Reports* reports = nullptr;

class ReportsScope {
 public:
  // A forked child does not use what a thread of the parent may have been changing.
  ReportsScope() {
    if (!reportsLock.lock()) reports = nullptr;
  }
  ~ReportsScope() { reportsLock.unlock(); }
  ReportsScope(const ReportsScope&) = delete;
  ReportsScope& operator=(const ReportsScope&) = delete;
};

std::uint64_t countToReport(const std::string& _path, std::uint64_t _count) {
  const std::int64_t now = platform::steadyMilliseconds();
  const ReportsScope scope;
  if (reports == nullptr) reports = new Reports;
  const bool isListed = reports->size() < MOST_FILES || reports->contains(_path);
  return (*reports)[isListed ? _path : std::string()].happened(now, _count);
}

}  // namespace

void reportLoss(const std::string& _path, std::uint64_t _count, platform::ErrorCode _error) noexcept {
  const platform::CancellationDelay delay;
  try {
    const std::uint64_t count = countToReport(_path, _count);
    if (count == 0) return;
    platform::writeStandardError("boost::logging: " + std::to_string(count) + (count == 1 ? " message" : " messages") +
                                 " could not be written to " + _path + ", error " + std::to_string(_error) + "\n");
  } catch (...) {
    // No memory to report it.
  }
}

}  // namespace boost::logging::detail
