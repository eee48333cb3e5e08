// SPDX-License-Identifier: MIT
#include "platform/linux/thread_object.h"

#include <chrono>

#include "platform/all_signals_blocked.h"
#include "platform/fault.h"
#include "platform/linux/event_word.h"
#include "platform/process.h"

#if defined(__SANITIZE_ADDRESS__)
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the name is the sanitizer's
extern "C" void __asan_handle_no_return();
#endif

namespace platform {
namespace {

// The address sanitizer sees no end of the functions that a cancellation unwinds, and would take what lies on their
// part of the stack later for an error.
void tellSanitizerOfUnwinding() {
#if defined(__SANITIZE_ADDRESS__)
  __asan_handle_no_return();
#endif
}

// How often a thread that is to end is woken. Once is not enough: it may be on its way to sleep.
constexpr std::chrono::milliseconds wakeInterval{1};

constinit thread_local ThreadObject* currentObject = nullptr;

}  // namespace

// Marks the end of the thread, whether its routine returns or its stack is unwound.
class ThreadObject::EndMark {
 public:
  explicit EndMark(ThreadObject& _thread) : thread_(_thread) {}

  ~EndMark() {
    if (!hasReturned_) HandleTable::instance().removeOwnedBy(&thread_);
    const std::lock_guard<std::mutex> lock(thread_.mutex_);
    thread_.exitCode_ = hasReturned_ ? exitCode_ : thread_.terminationCode_;
    thread_.ended_ = true;
    thread_.changed_.notify_all();
  }

  EndMark(const EndMark&) = delete;
  EndMark& operator=(const EndMark&) = delete;

  void returned(std::uint32_t _exitCode) {
    exitCode_ = _exitCode;
    hasReturned_ = true;
  }

 private:
  ThreadObject& thread_;
  std::uint32_t exitCode_ = 0;
  bool hasReturned_ = false;
};

ThreadObject::~ThreadObject() {
  // The last to let go may be the thread itself.
  if (id_ == 0 || reaped_) return;
  if (::pthread_equal(thread_, ::pthread_self()) != 0) {
    ::pthread_detach(thread_);
  } else {
    ::pthread_join(thread_, nullptr);
  }
}

ThreadObject* ThreadObject::current() { return currentObject; }

int ThreadObject::start(const std::shared_ptr<ThreadObject>& _thread, std::uint32_t& _id) {
  auto box = std::make_unique<std::shared_ptr<ThreadObject>>(_thread);
  std::unique_lock<std::mutex> lock(_thread->mutex_);
  const int error = [&] {
    const AllSignalsBlocked blocked;
    return ::pthread_create(&_thread->thread_, nullptr, &ThreadObject::enter, box.get());
  }();
  if (error != 0) return error;
  static_cast<void>(box.release());
  _thread->changed_.wait(lock, [&_thread] { return _thread->id_ != 0; });
  _id = _thread->id_;
  return 0;
}

void* ThreadObject::enter(void* _box) {
  // Nothing before this call is a cancellation point.
  ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr);
  const std::unique_ptr<std::shared_ptr<ThreadObject>> box(static_cast<std::shared_ptr<ThreadObject>*>(_box));
  (*box)->run();
  return nullptr;
}

void ThreadObject::run() {
  currentObject = this;
  static_cast<void>(injectedFault(Call::beginThread));
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    id_ = threadId();
    changed_.notify_all();
  }
  EndMark mark(*this);
  mark.returned(routine_(argument_));
}

std::uint32_t ThreadObject::wait(std::uint32_t _milliseconds) {
  std::unique_lock<std::mutex> lock(mutex_);
  const auto hasEnded = [this] { return ended_; };
  if (_milliseconds == waitForever) {
    changed_.wait(lock, hasEnded);
  } else if (!changed_.wait_for(lock, std::chrono::milliseconds(_milliseconds), hasEnded)) {
    return waitTimeout;
  }
  reap();
  return waitObject;
}

// Waits for the last instructions of a thread that has marked its end; they need nothing that the caller holds.
void ThreadObject::reap() {
  if (reaped_) return;
  reaped_ = true;
  ::pthread_join(thread_, nullptr);
}

bool ThreadObject::terminate(std::uint32_t _exitCode) {
  std::unique_lock<std::mutex> lock(mutex_);
  if (ended_) return false;
  terminationCode_ = _exitCode;
  ::pthread_cancel(thread_);
  if (this == currentObject) return true;
  while (!ended_) {
    if (sleepsOn_ != nullptr) wakeEventWaiters(sleepsOn_);
    changed_.wait_for(lock, wakeInterval);
  }
  reap();
  return true;
}

std::uint32_t ThreadObject::exitCode() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return exitCode_;
}

TerminationPoint::TerminationPoint(std::uint32_t* _word) : thread_(currentObject) {
  if (thread_ == nullptr) return;
  const std::lock_guard<std::mutex> lock(thread_->mutex_);
  thread_->sleepsOn_ = _word;
}

TerminationPoint::~TerminationPoint() {
  if (thread_ == nullptr) return;
  const std::lock_guard<std::mutex> lock(thread_->mutex_);
  thread_->sleepsOn_ = nullptr;
}

void TerminationPoint::check() {
  if (currentObject == nullptr) return;
  ::pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, nullptr);
  tellSanitizerOfUnwinding();
  ::pthread_testcancel();
  ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr);
}

}  // namespace platform
