// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace testsupport {

/// The processor time that this process has used so far. (On Windows std::clock is wall-clock time.)
std::chrono::microseconds processorTime();

}  // namespace testsupport
