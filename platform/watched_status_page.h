// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/status_pages.h"

namespace platform {

/// A status page that is looked at again and again while something is expected of its process. A look costs a fraction
/// of a copy of all pages, so that many pages can be watched without slowing the processes that write them.
///
///     WatchedStatusPage page(place, pid, form);
///     while (!page.newBytes()) pause();
///
/// Not for several threads at once.
class WatchedStatusPage {
 public:
  /// Opens the page, as carefully as copyStatusPages does.
  /// @param _place of one user.
  /// @param _pageProcessId by which the page is named.
  WatchedStatusPage(const StatusPagePlace& _place, std::uint32_t _pageProcessId, const StatusPageForm& _form);
  ~WatchedStatusPage();
  WatchedStatusPage(WatchedStatusPage&&) noexcept;
  WatchedStatusPage(const WatchedStatusPage&) = delete;
  WatchedStatusPage& operator=(const WatchedStatusPage&) = delete;

  /// Never for a page that could not be opened. A page that is removed and made again stays the former one here.
  /// @return a copy of the page when it was written since the last one, or since it was opened. Nothing while it is
  ///   being written. Never waits.
  std::optional<std::string> newBytes();

 private:
  struct Page;
  std::unique_ptr<Page> page_;
};

}  // namespace platform
