// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

#include "boost/logging/callables.hpp"
#include "logmanager/appenders/message_queue.h"
#include "platform/append_file.h"

namespace boost::logging::detail {

/// Takes batches from a queue to the wrapped appender, and remembers how far a batch has come for those who find it
/// after its thread was ended. One thread at a time.
class BatchDelivery {
 public:
  enum class Result { nothing, some, full };

  BatchDelivery(MessageQueue& _queue, const appender& _wrapped) : queue_(_queue), wrapped_(_wrapped) {}
  BatchDelivery(const BatchDelivery&) = delete;
  BatchDelivery& operator=(const BatchDelivery&) = delete;

  /// Delivers what the queue has, up to the size of a batch. What the wrapped appender throws is reported.
  /// @param _isLast as for MessageQueue::collect.
  Result deliver(bool _isLast) noexcept;

  /// To be called by the thread that delivers before it begins, so that settle can tell what it has done.
  void watch();

  /// After the thread that called deliver was ended in it: decides what the queue still has.
  /// @return false when the thread was inside a foreign appender, which called again might wait for ever for what the
  ///   thread has left behind; everything is then given up.
  bool settle();

 private:
  enum class Stage { collecting, calling, called };

  void callWrapped();

  MessageQueue& queue_;
  const appender& wrapped_;
  Batch batch_;
  std::atomic<Stage> stage_{Stage::collecting};
  /// Of the thread that delivers.
  platform::AppendWatch appends_;
};

}  // namespace boost::logging::detail
