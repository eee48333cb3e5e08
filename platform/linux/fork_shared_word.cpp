// SPDX-License-Identifier: MIT
#include "platform/fork_shared_word.h"

#include <sys/mman.h>

#include <chrono>
#include <new>
#include <thread>

#include "platform/fault.h"

namespace platform {
namespace {

using SharedValue = std::atomic<std::uint32_t>;
static_assert(SharedValue::is_always_lock_free, "a lock would be that of one process");

constexpr std::chrono::milliseconds betweenLooksAtWord{1};

}  // namespace

ForkSharedWord::ForkSharedWord() {
  if (injectedFault(Call::shareWord) != noError) return;
  void* const memory = ::mmap(nullptr, sizeof(SharedValue), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory != MAP_FAILED) value_ = new (memory) SharedValue(0);
}

ForkSharedWord::~ForkSharedWord() {
  if (isShared()) ::munmap(value_, sizeof(SharedValue));
}

void ForkSharedWord::pause() {
  injectedFault(Call::awaitSharedWord);
  std::this_thread::sleep_for(betweenLooksAtWord);
}

}  // namespace platform
