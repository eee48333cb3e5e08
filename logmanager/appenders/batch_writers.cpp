// SPDX-License-Identifier: MIT
#include "logmanager/appenders/batch_writers.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include "logmanager/appenders/batch_writer.h"
#include "platform/fork_handlers.h"

namespace boost::logging::detail {
namespace {

/// How long the end of the process waits for all text to be delivered.
constexpr std::chrono::seconds LONGEST_END{5};

}  // namespace

bool BatchWriters::add(const std::shared_ptr<BatchWriter>& _writer) {
  const std::lock_guard<std::mutex> lock(lock_);
  if (isOver_) return false;
  if (!isSetUp_) {
    // In a shared library the function is called at the latest when the library is unloaded.
    std::atexit(&BatchWriters::atExit);
    platform::registerForkHandlers(&BatchWriters::beforeFork, &BatchWriters::afterForkInParent,
                                   &BatchWriters::afterForkInChild);
    isSetUp_ = true;
  }
  if (std::find(writers_.begin(), writers_.end(), _writer) == writers_.end()) writers_.push_back(_writer);
  return true;
}

void BatchWriters::remove(const BatchWriter* _writer) {
  std::shared_ptr<BatchWriter> removed;
  const std::lock_guard<std::mutex> lock(lock_);
  const auto place = std::ranges::find(writers_, _writer, &std::shared_ptr<BatchWriter>::get);
  if (place == writers_.end()) return;
  removed = std::move(*place);
  writers_.erase(place);
}

void BatchWriters::atExit() { batchWriters().finishAll(); }

void BatchWriters::finishAll() {
  std::vector<std::shared_ptr<BatchWriter>> writers;
  {
    const std::lock_guard<std::mutex> lock(lock_);
    isOver_ = true;
    writers = writers_;
  }
  const auto deadline = std::chrono::steady_clock::now() + LONGEST_END;
  for (const std::shared_ptr<BatchWriter>& writer : writers)
    writer->finish(deadline);
}

void BatchWriters::beforeFork() {
  BatchWriters& all = batchWriters();
  all.lock_.lock();
  for (const std::shared_ptr<BatchWriter>& writer : all.writers_)
    writer->lockForFork();
}

void BatchWriters::afterForkInParent() {
  BatchWriters& all = batchWriters();
  for (const std::shared_ptr<BatchWriter>& writer : all.writers_)
    writer->unlockAfterFork();
  all.lock_.unlock();
}

void BatchWriters::afterForkInChild() {
  BatchWriters& all = batchWriters();
  for (const std::shared_ptr<BatchWriter>& writer : all.writers_)
    writer->restartInChild();
  all.writers_.clear();
  all.lock_.unlock();
}

BatchWriters& batchWriters() {
  static BatchWriters* const all = new BatchWriters;
  return *all;
}

}  // namespace boost::logging::detail
