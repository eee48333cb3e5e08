// SPDX-License-Identifier: MIT
#include "platform/fork_handlers.h"

#include <pthread.h>

namespace platform {

void registerForkHandlers(void (*_before)(), void (*_inParent)(), void (*_inChild)()) {
  ::pthread_atfork(_before, _inParent, _inChild);
}

}  // namespace platform
