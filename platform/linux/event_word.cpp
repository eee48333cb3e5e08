// SPDX-License-Identifier: MIT
#include "platform/linux/event_word.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <climits>

namespace platform {
namespace {

constexpr std::uint32_t setBit = 1;
constexpr std::uint32_t generationStep = 2;

using Word = std::atomic_ref<std::uint32_t>;
static_assert(Word::is_always_lock_free, "the word is shared between processes");

std::uint32_t generationOf(std::uint32_t _value) { return _value & ~setBit; }

}  // namespace

void setEventWord(std::uint32_t* _word) {
  const Word word(*_word);
  std::uint32_t value = word.load();
  while (!word.compare_exchange_weak(value, (generationOf(value) + generationStep) | setBit)) {
  }
  wakeEventWaiters(_word);
}

void resetEventWord(std::uint32_t* _word) { Word(*_word).fetch_and(~setBit); }

std::uint32_t countSettings(std::uint32_t* _word) { return Word(*_word).load() / generationStep; }

void wakeEventWaiters(std::uint32_t* _word) { ::syscall(SYS_futex, _word, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0); }

EventWatch::EventWatch(std::uint32_t* _word)
    : word_(_word), seen_(Word(*_word).load()), generation_(generationOf(seen_)) {}

bool EventWatch::isLetThrough() {
  seen_ = Word(*word_).load();
  return (seen_ & setBit) != 0 || generationOf(seen_) != generation_;
}

void EventWatch::sleepUntil(const timespec& _moment) const {
  // Of the two ways to wait on a futex, the one with a bit set takes an absolute time.
  ::syscall(SYS_futex, word_, FUTEX_WAIT_BITSET, seen_, &_moment, nullptr, FUTEX_BITSET_MATCH_ANY);
}

}  // namespace platform
