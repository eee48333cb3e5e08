// SPDX-License-Identifier: MIT
#include "platform/cancellation.h"

namespace platform {

CancellationDelay::CancellationDelay() noexcept = default;

CancellationDelay::~CancellationDelay() = default;

}  // namespace platform
