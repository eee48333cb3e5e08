// SPDX-License-Identifier: MIT
#pragma once

#include <boost/thread/thread.hpp>
#include <memory>
#include <mutex>
#include <vector>

#include "logmanager/appenders/batch_writer.h"

namespace boost::logging::detail {

/// The threads of all batch writers, which it owns. When the process exits normally or the library is unloaded, all
/// messages are delivered; afterwards no thread is started any more. All functions may be called from any thread.
class WriterThreads {
 public:
  /// Starts the thread of a writer that has none; where none is to be had, the writer delivers on its callers' threads.
  /// @return whether this call started it.
  bool start(const std::shared_ptr<BatchWriter>& _writer);

 private:
  struct WriterThread {
    std::shared_ptr<BatchWriter> writer;
    std::unique_ptr<boost::thread> thread;
  };

  static void atExit();
  static void beforeFork();
  static void afterForkInParent();
  static void afterForkInChild();
  void setUp();
  bool tryStart(const std::shared_ptr<BatchWriter>& _writer);
  void joinEnded();
  void finishAll();

  std::mutex lock_;
  std::vector<WriterThread> threads_;
  bool isSetUp_ = false;
  bool isOver_ = false;
};

/// The one list of the process, never destroyed.
WriterThreads& writerThreads();

}  // namespace boost::logging::detail
