// SPDX-License-Identifier: MIT
#include "tools/system/boot_clock.h"

#include "platform/win32/windows_api.h"

namespace toolsystem {

BootTime bootTime() { return {"", static_cast<std::int64_t>(::GetTickCount64())}; }

}  // namespace toolsystem
