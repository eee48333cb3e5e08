// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace testsupport {

/// The time that the processors have spent on this process so far. (std::clock is the time on the wall on Windows.)
std::chrono::microseconds processorTime();

}  // namespace testsupport
