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

/// What platform/ needs to know about a page.
constexpr platform::StatusPageForm statusPageForm{Quillmark_logging::status::pageSize,
                                                  Quillmark_logging::status::sequence.offset};

enum class PageState {
  live,        ///< the process runs
  stale,       ///< the process was killed, or now runs another program (Linux: exec)
  denied,      ///< the caller may not read it
  notTrusted,  ///< something else is in place of a page or of the folder of pages
  busy,        ///< the process was stopped or killed while writing the page
};

/// A page, or a folder of pages that cannot be read.
struct FoundProcess {
  PageState state = PageState::notTrusted;
  /// As the caller sees it; 0 if unknown.
  std::uint32_t processId = 0;
  /// The owner of the page; status::noUserId on Windows.
  std::uint32_t userId = 0;
  /// Of the page or folder, in the system's form.
  std::string path;
  /// For live and stale pages.
  std::optional<ProcessStatus> status;
};

/// Finds the status pages in a place, sorted by process id.
///
///     findProcesses({"", platform::userId()});     // the caller's own
///     findProcesses({"", std::nullopt});           // of all users
///     findProcesses({"/proc/4711/root", 1000});    // of a container, where the user has the id 1000
std::vector<FoundProcess> findProcesses(const platform::StatusPagePlace& _place);

}  // namespace qmrkctl
