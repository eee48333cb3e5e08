// SPDX-License-Identifier: MIT
#include "platform/fork_shared_word.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {

ForkSharedWord::ForkSharedWord() = default;

ForkSharedWord::~ForkSharedWord() = default;

void ForkSharedWord::pause() {
  injectedFault(Call::awaitSharedWord);
  ::Sleep(1);
}

}  // namespace platform
