// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <memory>

#include "boost/logging/callables.hpp"
#include "logmanager/appenders/message_queue.h"
#include "platform/append_file.h"

namespace boost::logging::detail {

/// Takes batches from a queue to the wrapped appender, and notes the progress of a batch for whoever finds it after its
/// thread was ended. One thread at a time.
class BatchDelivery {
 public:
  enum class Result { nothing, some, full };

  BatchDelivery(MessageQueue& _queue, const appender& _wrapped) : queue_(_queue), wrapped_(_wrapped) {}
  BatchDelivery(const BatchDelivery&) = delete;
  BatchDelivery& operator=(const BatchDelivery&) = delete;

  /// Delivers what the queue has, up to the size of a batch. Reports what the wrapped appender throws.
  /// @param _isLast as for MessageQueue::collect.
  Result deliver(bool _isLast) noexcept;

  /// The delivering thread calls it before it begins, so that settle can find out what it has done.
  void watch();

  /// Decides what the queue still has, after the thread that called deliver was ended inside it.
  /// @return false when the thread was inside a foreign appender, which might wait for ever for what that thread left
  ///   behind if called again; everything is then given up.
  bool settle();

  /// In place of its destruction, in the child of a fork: the parent's thread may have been changing it. Keeps it for
  /// ever, where a leak checker finds it. Needs no memory.
  static void abandon(std::unique_ptr<BatchDelivery> _delivery) noexcept;

 private:
  enum class Stage { collecting, calling, called };

  void callWrapped();

  MessageQueue& queue_;
  const appender& wrapped_;
  Batch batch_;
  std::atomic<Stage> stage_{Stage::collecting};
  /// That of the delivering thread.
  platform::AppendWatch appends_;
  /// The list of those that are abandoned.
  BatchDelivery* formerAbandoned_ = nullptr;
};

}  // namespace boost::logging::detail
