// SPDX-License-Identifier: MIT
#include "logmanager/appenders/once_emptied.h"

namespace boost::logging::detail {
namespace {

constexpr std::uint32_t emptyingIsDue = 0;
constexpr std::uint32_t emptyingIsDone = 1;
constexpr std::uint32_t firstTurn = 2;

/// With a millisecond after each.
constexpr int mostLooksAtTurn = 2000;

}  // namespace

OnceEmptied::OnceEmptied(bool _isDue) {
  if (_isDue) state_ = std::make_unique<platform::ForkSharedWord>();
}

// Nobody writes before the file is empty, so whoever takes the turn of a process that is gone empties it without loss.
bool OnceEmptied::begin() {
  if (!state_) return false;
  std::uint32_t former = emptyingIsDue;
  for (int looks = 0;; ++looks) {
    std::uint32_t state = state_->value().load(std::memory_order_acquire);
    if (state == emptyingIsDone) return false;
    if (state != former) looks = 0;
    former = state;
    const bool isFree = state == emptyingIsDue;
    if (isFree || looks >= mostLooksAtTurn) {
      turn_ = isFree ? firstTurn : state + 1;
      if (state_->value().compare_exchange_strong(state, turn_, std::memory_order_acq_rel)) return true;
    } else {
      platform::ForkSharedWord::pause();
    }
  }
}

void OnceEmptied::end(bool _isEmptied) {
  if (_isEmptied) {
    state_->value().store(emptyingIsDone, std::memory_order_release);
  } else {
    state_->value().compare_exchange_strong(turn_, emptyingIsDue, std::memory_order_release);
  }
}

// Where the memory is not shared, nobody here knows what the parent makes of the file.
void OnceEmptied::restartInChild() {
  if (state_ && !state_->isShared()) state_->value().store(emptyingIsDone, std::memory_order_relaxed);
}

}  // namespace boost::logging::detail
