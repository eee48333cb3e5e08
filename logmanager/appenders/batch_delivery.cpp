// SPDX-License-Identifier: MIT
#include "logmanager/appenders/batch_delivery.h"

#include <string>

#include "logmanager/appenders/failure_report.h"
#include "logmanager/appenders/shared_append_file.h"
#include "platform/append_file.h"
#include "platform/clock.h"

namespace boost::logging::detail {
namespace {

constexpr std::size_t largestKeptBatch = std::size_t{1024} * 1024;

constinit std::atomic<BatchDelivery*> latestAbandoned{nullptr};

}  // namespace

BatchDelivery::Result BatchDelivery::deliver(bool _isLast) noexcept {
  try {
    queue_.collect(batch_, _isLast);
  } catch (...) {
    reportException("ts_appender", std::string());
    // Without the beginning of the message for which there was no memory, which is collected again.
    batch_.text.resize(batch_.isEmpty() ? 0 : batch_.ends.back());
  }
  if (batch_.isEmpty()) return Result::nothing;
  const Result result = batch_.text.size() >= MessageQueue::batchSize ? Result::full : Result::some;
  appends_.restart();
  stage_.store(Stage::calling, std::memory_order_release);
  callWrapped();
  stage_.store(Stage::called, std::memory_order_release);
  queue_.consume();
  batch_.clear();
  if (batch_.text.capacity() > largestKeptBatch) batch_.text.shrink_to_fit();
  stage_.store(Stage::collecting, std::memory_order_release);
  return result;
}

void BatchDelivery::callWrapped() {
  try {
    if (SharedAppendFile* const file = SharedAppendFile::of(wrapped_)) {
      // Its losses are counted by messages.
      file->append({batch_.text, batch_.ends}, platform::wallClockMilliseconds());
    } else {
      wrapped_(std::string(), batch_.text);
    }
  } catch (...) {
    const std::size_t count = batch_.ends.size();
    try {
      reportException("ts_appender, " + std::to_string(count) + (count == 1 ? " message" : " messages"), std::string());
    } catch (...) {
      // No memory to tell of it.
    }
  }
}

void BatchDelivery::watch() { appends_.watchThisThread(); }

bool BatchDelivery::settle() {
  const Stage stage = stage_.load(std::memory_order_acquire);
  const bool isInForeign = stage == Stage::calling && SharedAppendFile::of(wrapped_) == nullptr;
  const bool isDelivered = stage == Stage::called || (stage == Stage::calling && appends_.hasAppended());
  if (isDelivered || isInForeign) {
    queue_.consume();
  } else {
    queue_.rewind();
  }
  return !isInForeign;
}

void BatchDelivery::abandon(std::unique_ptr<BatchDelivery> _delivery) noexcept {
  if (_delivery == nullptr) return;
  _delivery->formerAbandoned_ = latestAbandoned.exchange(_delivery.get());
  static_cast<void>(_delivery.release());
}

}  // namespace boost::logging::detail
