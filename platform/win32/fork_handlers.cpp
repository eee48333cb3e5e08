// SPDX-License-Identifier: MIT
#include "platform/fork_handlers.h"

namespace platform {

void registerForkHandlers(void (* /*_before*/)(), void (* /*_inParent*/)(), void (* /*_inChild*/)()) {}

}  // namespace platform
