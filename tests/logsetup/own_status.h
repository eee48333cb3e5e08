// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "platform/process.h"
#include "platform/running_process.h"
#include "tools/status/process_finder.h"

namespace testsupport {

namespace status = Quillmark_logging::status;

/// The page of a process, as a tool finds it; with the state notTrusted when there is none.
inline qmrkctl::FoundProcess pageOf(int _process) {
  for (const qmrkctl::FoundProcess& found : qmrkctl::findProcesses({"", platform::userId()})) {
    if (found.processId == static_cast<std::uint32_t>(_process)) return found;
  }
  return {};
}

/// What this process shows; a failure of the test when it shows nothing. When another thread writes the page and gets
/// no processor, this waits, for longer than a tool does.
inline qmrkctl::ProcessStatus ownStatus() {
  qmrkctl::FoundProcess found = pageOf(platform::processId());
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (found.state == qmrkctl::PageState::busy && std::chrono::steady_clock::now() < giveUp)
    found = pageOf(platform::processId());
  EXPECT_EQ(found.state, qmrkctl::PageState::live);
  return found.status.value_or(qmrkctl::ProcessStatus());
}

inline bool showsNothing() { return !pageOf(platform::processId()).status.has_value(); }

}  // namespace testsupport
