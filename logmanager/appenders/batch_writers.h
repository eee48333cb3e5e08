// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <mutex>
#include <vector>

namespace boost::logging::detail {

class BatchWriter;

/// The batch writers whose thread runs. When the process exits normally or the library is unloaded, their text is
/// delivered; afterwards no thread is started any more. All functions may be called from any thread at once.
class BatchWriters {
 public:
  /// To be called before the thread of the writer is started.
  /// @return false when no thread may be started any more.
  bool add(const std::shared_ptr<BatchWriter>& _writer);

  /// To be called by the thread of the writer before it ends.
  void remove(const BatchWriter* _writer);

 private:
  static void atExit();
  static void beforeFork();
  static void afterForkInParent();
  static void afterForkInChild();
  void finishAll();

  std::mutex lock_;
  std::vector<std::shared_ptr<BatchWriter>> writers_;
  bool isSetUp_ = false;
  bool isOver_ = false;
};

/// The one list of the process, never destroyed.
BatchWriters& batchWriters();

}  // namespace boost::logging::detail
