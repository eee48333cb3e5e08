// SPDX-License-Identifier: MIT
#include "platform/quiet_writes.h"

namespace platform {

struct QuietWrites::Signals {};

QuietWrites::QuietWrites() = default;

QuietWrites::~QuietWrites() = default;

void QuietWrites::consume() {}

}  // namespace platform
