// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "platform/watched_status_page.h"
#include "tools/status/process_status.h"

namespace qmrkctl {

/// Watches the status page of a process from which something is expected. Reads only new versions. For one thread.
class PageWatch {
 public:
  /// @param _known the page as last read.
  PageWatch(const platform::StatusPagePlace& _place, const ProcessStatus& _known);

  /// The page, if the process has written it since the last call or the construction; never waits.
  /// @return no value if there is nothing new, or the page now belongs to another process.
  std::optional<ProcessStatus> newStatus();

 private:
  platform::WatchedStatusPage page_;
  std::uint32_t pid_;
  std::uint64_t startTime_;
};

}  // namespace qmrkctl
