// SPDX-License-Identifier: MIT
#include "logmanager/set_up_change.h"

#include <utility>

#include "logmanager/default_log_manager.h"

namespace boost::logging {

using detail::NotedCalls;
using detail::SetUpCalls;

namespace {

/// Of the calling thread, those of the manager that it turned to last.
NotedCalls*& latestNoted() {
  static thread_local constinit NotedCalls* noted = nullptr;
  return noted;
}

}  // namespace

NotedCalls* NotedCalls::ofThread(const default_log_manager& _manager) {
  NotedCalls* noted = latestNoted();
  while (noted != nullptr && &noted->manager != &_manager)
    noted = noted->outer;
  return noted;
}

set_up_change::set_up_change(default_log_manager& _manager) : noted_(NotedCalls::ofThread(_manager)) {
  if (noted_ == nullptr) {
    noted_ = new NotedCalls{_manager, this, latestNoted(), {}, false};
    latestNoted() = noted_;
  }
  keep();
}

set_up_change::~set_up_change() {
  if (noted_->owner == this) {
    // First, as the callables that go with it may have destructors that make set-up calls.
    latestNoted() = noted_->outer;
    delete noted_;
    return;
  }
  noted_->calls.shrink(kept_);
  noted_->isFlushDue = noted_->isFlushDue && keepsFlush_;
}

void set_up_change::apply() {
  if (noted_->owner != this) {
    keep();
    return;
  }
  SetUpCalls calls = std::exchange(noted_->calls, SetUpCalls());
  try {
    noted_->manager.apply(calls);
  } catch (...) {
    noted_->calls = std::move(calls);
    throw;
  }
  if (std::exchange(noted_->isFlushDue, false)) noted_->manager.earlyMessages().flush();
}

// What is noted by now stays so, whatever becomes of this change.
void set_up_change::keep() {
  kept_ = noted_->calls.size();
  keepsFlush_ = noted_->isFlushDue;
}

}  // namespace boost::logging
