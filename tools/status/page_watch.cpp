// SPDX-License-Identifier: MIT
#include "tools/status/page_watch.h"

#include <string>

#include "tools/status/process_finder.h"
#include "tools/status/status_page_parser.h"

namespace qmrkctl {

PageWatch::PageWatch(const platform::StatusPagePlace& _place, const ProcessStatus& _known)
    : page_(_place, _known.pid, statusPageForm), pid_(_known.pid), startTime_(_known.startTime) {}

std::optional<ProcessStatus> PageWatch::newStatus() {
  const std::optional<std::string> bytes = page_.newBytes();
  if (!bytes) return std::nullopt;
  std::optional<ProcessStatus> status = parseStatusPage(*bytes);
  // A later process may have the same id.
  if (status && (status->pid != pid_ || status->startTime != startTime_)) status.reset();
  return status;
}

}  // namespace qmrkctl
