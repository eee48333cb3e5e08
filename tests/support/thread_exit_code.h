// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/thread.h"

namespace testsupport {

/// The exit code of a thread of platform/thread.h.
inline std::uint32_t exitCodeOfThread(platform::Handle _thread) {
  std::uint32_t code = 0;
  EXPECT_TRUE(platform::threadExitCode(_thread, code));
  return code;
}

}  // namespace testsupport
