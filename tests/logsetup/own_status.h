// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

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

/// What this process shows; a failure of the test when it shows nothing.
inline qmrkctl::ProcessStatus ownStatus() {
  const qmrkctl::FoundProcess found = pageOf(platform::processId());
  EXPECT_EQ(found.state, qmrkctl::PageState::live);
  return found.status.value_or(qmrkctl::ProcessStatus());
}

inline bool showsNothing() { return !pageOf(platform::processId()).status.has_value(); }

}  // namespace testsupport
