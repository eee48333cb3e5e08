// SPDX-License-Identifier: MIT
#include "platform/cancellation.h"

#include <pthread.h>

namespace platform {

CancellationDelay::CancellationDelay() noexcept { ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &former_); }

CancellationDelay::~CancellationDelay() {
  int delayed = 0;
  ::pthread_setcancelstate(former_, &delayed);
}

}  // namespace platform
