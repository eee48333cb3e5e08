// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "platform/watched_status_page.h"
#include "tools/status/process_status.h"

namespace qmrkctl {

/// The page of a process of which something is expected: only what is new is read.
class PageWatch {
 public:
  /// @param _known what was read of the page so far.
  PageWatch(const platform::StatusPagePlace& _place, const ProcessStatus& _known);

  /// What the process shows, if it has written its page since the last call, or since this object was made.
  /// Never waits.
  std::optional<ProcessStatus> newStatus();

 private:
  platform::WatchedStatusPage page_;
  std::uint32_t pid_;
  std::uint64_t startTime_;
};

}  // namespace qmrkctl
