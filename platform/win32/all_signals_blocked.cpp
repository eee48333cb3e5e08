// SPDX-License-Identifier: MIT
#include "platform/all_signals_blocked.h"

namespace platform {

AllSignalsBlocked::AllSignalsBlocked() noexcept : former_{} {}

AllSignalsBlocked::~AllSignalsBlocked() { static_cast<void>(former_); }

}  // namespace platform
