// SPDX-License-Identifier: MIT
#include "platform/quiet_writes.h"

#include "platform/linux/blocked_signal.h"

namespace platform {

struct QuietWrites::Signals {
  BlockedSignal brokenPipe{SIGPIPE};
  BlockedSignal sizeExceeded{SIGXFSZ};
};

QuietWrites::QuietWrites() : signals_(std::make_unique<Signals>()) {}

QuietWrites::~QuietWrites() = default;

void QuietWrites::consume() {
  signals_->brokenPipe.consume();
  signals_->sizeExceeded.consume();
}

}  // namespace platform
