// SPDX-License-Identifier: MIT
#pragma once

#include <boost/thread/thread.hpp>
#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

#include "logmanager/appenders/batch_writer.h"

namespace boost::logging::detail {

/// All batch writers that are in use, and their threads, which it owns. When the process exits normally or the library
/// is unloaded, all messages are delivered; afterwards no thread is started any more. All functions may be called from
/// any thread.
class WriterThreads {
 public:
  /// For the end of the process or of the library: waits until all messages are delivered, for a few seconds at most.
  /// Messages that come later are delivered on their callers' threads. To be called again without harm.
  void finishAll();

  /// To be called before the writer gets a message, so that a fork finds it. May throw std::bad_alloc.
  void add(const std::shared_ptr<BatchWriter>& _writer);

  /// To be called when the writer gets no more messages. Its thread, if there is one, may still be at work.
  void remove(const BatchWriter& _writer);

  /// Starts the thread of a writer that has none; where none is to be had, the writer delivers on its callers' threads.
  /// @return whether this call started it.
  bool start(BatchWriter& _writer);

 private:
  struct WriterThread {
    std::shared_ptr<BatchWriter> writer;
    /// Null until it is started.
    std::unique_ptr<boost::thread> thread;
  };

  static void atExit();
  static void beforeFork();
  static void afterForkInParent();
  static void afterForkInChild();
  void setUp();
  bool tryStart(BatchWriter& _writer);
  std::vector<WriterThread>::iterator placeOf(const BatchWriter& _writer);
  void joinEnded();
  static void join(const WriterThread& _one, std::chrono::steady_clock::time_point _deadline);

  std::mutex lock_;
  std::vector<WriterThread> threads_;
  bool isSetUp_ = false;
  bool isOver_ = false;
};

/// The one list of the process, never destroyed.
WriterThreads& writerThreads();

}  // namespace boost::logging::detail
