// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

namespace platform {

/// Sleeps while the word has the value, until somebody changes it and calls wakeOne. May return early, so the caller
/// checks again. Any thread. (futex on Linux, WaitOnAddress on Windows.)
void sleepWhile(const std::atomic<std::uint32_t>& _word, std::uint32_t _value) noexcept;

/// Wakes one thread that sleeps on the word, if there is one. Call it after changing the word.
void wakeOne(std::atomic<std::uint32_t>& _word) noexcept;

}  // namespace platform
