// SPDX-License-Identifier: MIT
#include "tools/system/boot_clock.h"

#include <ctime>
#include <fstream>

namespace toolsystem {

BootTime bootTime() {
  BootTime time;
  std::ifstream("/proc/sys/kernel/random/boot_id") >> time.bootId;
  timespec now{};
  ::clock_gettime(CLOCK_BOOTTIME, &now);
  time.milliseconds = std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
  return time;
}

}  // namespace toolsystem
