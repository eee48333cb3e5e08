// SPDX-License-Identifier: MIT
#include "platform/word_wait.h"

namespace platform {

void sleepWhile(const std::atomic<std::uint32_t>& _word, std::uint32_t _value) noexcept {
  _word.wait(_value, std::memory_order_relaxed);
}

void wakeOne(std::atomic<std::uint32_t>& _word) noexcept { _word.notify_one(); }

}  // namespace platform
