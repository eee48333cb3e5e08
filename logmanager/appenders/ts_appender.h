// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "logmanager/appenders/batch_writer.h"

namespace boost::logging::detail {

/// What the copies of a ts_appender share; ends with the last copy.
class BatchHandle {
 public:
  /// As for BatchWriter; a write_to_file knows its file itself.
  BatchHandle(const appender& _wrapped, int _sleepMs, const std::string& _file);
  ~BatchHandle();
  BatchHandle(const BatchHandle&) = delete;
  BatchHandle& operator=(const BatchHandle&) = delete;

  /// What a ts_appender leads to; null for any other appender.
  static BatchHandle* of(const appender& _appender);

  MessageQueue& queue() const { return writer_->queue(); }

  /// Leaves the line for the thread, as an appender is called.
  void append(std::string_view _line) {
    queue().push(_line);
    if (queue().needsAttention()) attend();
  }

  /// For a caller that has left a message in a lane of a queue that wants attention. The call that starts the thread
  /// sleeps 100 ms.
  void attend();

 private:
  std::shared_ptr<BatchWriter> writer_;
};

}  // namespace boost::logging::detail
