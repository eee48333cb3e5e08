// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnostics/status_page_layout.h"
#include "platform/status_pages.h"
#include "tools/status/process_status.h"

namespace qmrkctl {

/// What the seam has to know of a page.
constexpr platform::StatusPageForm statusPageForm{Quillmark_logging::status::pageSize,
                                                  Quillmark_logging::status::sequence.offset};

enum class PageState {
  live,        ///< the process runs
  stale,       ///< the process was killed, or runs another program now (Linux: exec)
  denied,      ///< the caller may not look at it
  notTrusted,  ///< something else stands in place of a page or of the folder of pages
  busy,        ///< the process was stopped or killed while it wrote the page
};

/// A page that was found, or a folder of pages that cannot be looked into.
struct FoundProcess {
  PageState state = PageState::notTrusted;
  /// As the caller sees it; 0 when it is unknown.
  std::uint32_t processId = 0;
  /// The owner of the page; status::noUserId on Windows.
  std::uint32_t userId = 0;
  /// Of the page or folder, as the system writes it.
  std::string path;
  /// For live and stale pages.
  std::optional<ProcessStatus> status;
};

/// Finds the status pages of a place, in the order of the process ids.
///
///     findProcesses({"", platform::userId()});     // the caller's own
///     findProcesses({"", std::nullopt});           // of all users
///     findProcesses({"/proc/4711/root", 1000});    // of a container, as user id 1000 is written there
std::vector<FoundProcess> findProcesses(const platform::StatusPagePlace& _place);

}  // namespace qmrkctl
