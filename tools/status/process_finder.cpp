// SPDX-License-Identifier: MIT
#include "tools/status/process_finder.h"

#include <algorithm>

#include "diagnostics/status_page_layout.h"
#include "platform/running_process.h"
#include "tools/status/status_page_parser.h"

namespace qmrkctl {
namespace {

PageState stateOfError(platform::ErrorCode _error) {
  switch (_error) {
    case platform::errorAccessDenied:
      return PageState::denied;
    case platform::errorBusy:
      return PageState::busy;
    default:
      return PageState::notTrusted;
  }
}

// A process of another PID namespace that shares the caller's folders cannot be looked for.
bool isOfForeignNamespace(const platform::StatusPagePlace& _place, const ProcessStatus& _status) {
  return _place.root.empty() && _status.pidNamespace != 0 && _status.pidNamespace != platform::processNamespace();
}

bool runs(std::uint32_t _processId, std::uint64_t _startTime) {
  const std::uint64_t startTime = _processId != 0 ? platform::startTimeOf(_processId) : 0;
  return startTime != 0 && (_startTime == 0 || _startTime == startTime);
}

FoundProcess examine(const platform::StatusPagePlace& _place, const platform::StatusPageCopy& _copy) {
  FoundProcess found;
  found.processId = _copy.processId;
  found.userId = _copy.userId;
  found.path = _copy.path;
  found.state = stateOfError(_copy.error);
  if (_copy.error != platform::noError) return found;
  found.status = parseStatusPage(_copy.bytes);
  if (found.status && found.status->pid != _copy.pageProcessId) found.status.reset();
  if (!found.status) return found;
  if (isOfForeignNamespace(_place, *found.status)) {
    found.processId = 0;
    found.state = PageState::live;
  } else {
    // One that names no program is not the library's, and need not be in use as the library's are.
    const bool isLeft = !found.status->program.text.empty() && !_copy.isInUse.value_or(true);
    const bool isLive = !isLeft && runs(found.processId, found.status->startTime);
    found.state = isLive ? PageState::live : PageState::stale;
  }
  return found;
}

}  // namespace

std::vector<FoundProcess> findProcesses(const platform::StatusPagePlace& _place) {
  std::vector<FoundProcess> processes;
  for (const platform::StatusPageCopy& copy : platform::copyStatusPages(_place, statusPageForm)) {
    processes.push_back(examine(_place, copy));
  }
  std::ranges::stable_sort(processes, {}, &FoundProcess::processId);
  return processes;
}

}  // namespace qmrkctl
