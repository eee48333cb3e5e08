// SPDX-License-Identifier: MIT
#include "logmanager/appenders/writer_threads.h"

#include <boost/chrono/duration.hpp>
#include <chrono>
#include <cstdlib>
#include <utility>

#include "platform/all_signals_blocked.h"
#include "platform/fork_handlers.h"

namespace boost::logging::detail {
namespace {

using std::chrono::steady_clock;

/// How long the end of the process waits for all messages to be delivered.
constexpr std::chrono::seconds exitTimeout{5};
/// The end of a thread that has nothing left to do takes an instant, or for ever while the system holds up the ends of
/// threads, as Windows does when it unloads a library.
constexpr boost::chrono::milliseconds joinTimeout{100};

}  // namespace

bool WriterThreads::start(const std::shared_ptr<BatchWriter>& _writer) {
  if (!_writer->noteThread()) return false;
  if (tryStart(_writer)) return true;
  _writer->noteNoThread();
  return false;
}

bool WriterThreads::tryStart(const std::shared_ptr<BatchWriter>& _writer) {
  const std::lock_guard<std::mutex> lock(lock_);
  if (isOver_) return false;
  try {
    setUp();
    joinEnded();
    threads_.push_back(WriterThread{_writer, nullptr});
    const platform::AllSignalsBlocked blocked;
    threads_.back().thread.reset(new boost::thread([writer = _writer.get()] { writer->run(); }));
    return true;
  } catch (...) {
    if (!threads_.empty() && threads_.back().thread == nullptr) threads_.pop_back();
    return false;
  }
}

// In a shared library the function for the exit is called at the latest when the library is unloaded.
void WriterThreads::setUp() {
  if (isSetUp_) return;
  std::atexit(&WriterThreads::atExit);
  platform::registerForkHandlers(&WriterThreads::beforeFork, &WriterThreads::afterForkInParent,
                                 &WriterThreads::afterForkInChild);
  isSetUp_ = true;
}

void WriterThreads::joinEnded() {
  std::erase_if(threads_, [](const WriterThread& _one) {
    return _one.writer->hasEnded() && _one.thread->try_join_for(joinTimeout);
  });
}

void WriterThreads::atExit() { writerThreads().finishAll(); }

void WriterThreads::finishAll() {
  std::vector<WriterThread> threads;
  {
    const std::lock_guard<std::mutex> lock(lock_);
    isOver_ = true;
    threads.swap(threads_);
  }
  const auto deadline = steady_clock::now() + exitTimeout;
  for (const WriterThread& one : threads) {
    one.writer->finish(deadline, [&one] {
      return one.thread->get_id() != boost::this_thread::get_id() &&
             (!one.thread->joinable() || one.thread->try_join_for(boost::chrono::milliseconds(0)));
    });
  }
  for (WriterThread& one : threads) {
    if (one.writer->hasEnded() && one.thread->joinable()) one.thread->try_join_for(joinTimeout);
  }
  // A thread that is still somewhere needs its writer.
  static auto* const finished = new std::vector<WriterThread>;
  finished->swap(threads);
}

void WriterThreads::beforeFork() {
  WriterThreads& all = writerThreads();
  all.lock_.lock();
  for (const WriterThread& one : all.threads_)
    one.writer->lockForFork();
}

void WriterThreads::afterForkInParent() {
  WriterThreads& all = writerThreads();
  for (const WriterThread& one : all.threads_)
    one.writer->unlockAfterFork();
  all.lock_.unlock();
}

// What the threads of the parent hold is theirs for ever.
void WriterThreads::afterForkInChild() {
  WriterThreads& all = writerThreads();
  for (const WriterThread& one : all.threads_)
    one.writer->restartInChild();
  static auto* const ofParent = new std::vector<WriterThread>;
  for (WriterThread& one : all.threads_)
    ofParent->push_back(std::move(one));
  all.threads_.clear();
  all.lock_.unlock();
}

WriterThreads& writerThreads() {
  static auto* const all = new WriterThreads;
  return *all;
}

}  // namespace boost::logging::detail
