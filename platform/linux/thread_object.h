// SPDX-License-Identifier: MIT
#pragma once

#include <pthread.h>

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>

#include "platform/linux/handle_table.h"
#include "platform/thread.h"

namespace platform {

/// A thread made by createThread. It blocks every signal. Its cancellation is deferred, and disabled except in
/// TerminationPoint::check.
class ThreadObject : public HandleTarget {
 public:
  ThreadObject(ThreadRoutine _routine, void* _argument) : routine_(_routine), argument_(_argument) {}
  ~ThreadObject() override;

  /// Starts the thread and waits until its id is known.
  /// @return an errno value, 0 when it runs.
  static int start(const std::shared_ptr<ThreadObject>& _thread, std::uint32_t& _id);

  /// The object of the calling thread; null for a thread not made by createThread.
  static ThreadObject* current();

  std::uint32_t wait(std::uint32_t _milliseconds);
  bool terminate(std::uint32_t _exitCode);
  std::uint32_t exitCode();

 private:
  friend class TerminationPoint;
  class EndMark;

  static void* enter(void* _box);
  void run();
  void reap();

  const ThreadRoutine routine_;
  void* const argument_;
  std::mutex mutex_;
  std::condition_variable changed_;
  pthread_t thread_{};
  std::uint32_t id_ = 0;
  bool ended_ = false;
  bool reaped_ = false;
  std::uint32_t exitCode_ = stillActive;
  std::uint32_t terminationCode_ = 0;
  std::uint32_t* sleepsOn_ = nullptr;
};

/// Lives while the calling thread waits for an event: shows whoever terminates the thread which word it sleeps on. The
/// word must outlive the object. Does nothing in a thread not made by createThread.
class TerminationPoint {
 public:
  explicit TerminationPoint(std::uint32_t* _word);
  ~TerminationPoint();
  TerminationPoint(const TerminationPoint&) = delete;
  TerminationPoint& operator=(const TerminationPoint&) = delete;

  /// Does not return when the calling thread is being terminated: its stack is unwound from here.
  static void check();

 private:
  ThreadObject* thread_;
};

}  // namespace platform
