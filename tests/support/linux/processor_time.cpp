// SPDX-License-Identifier: MIT
#include "tests/support/processor_time.h"

#include <ctime>

namespace testsupport {

std::chrono::microseconds processorTime() {
  timespec time{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_nsec / 1000);
}

}  // namespace testsupport
