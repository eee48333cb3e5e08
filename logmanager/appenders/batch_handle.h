// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "logmanager/appenders/batch_writer.h"

namespace boost::logging::detail {

/// What the copies of a ts_appender share; its end is the end of the last copy.
class BatchHandle {
 public:
  BatchHandle(const appender& _wrapped, int _sleepMs) : writer_(std::make_shared<BatchWriter>(_wrapped, _sleepMs)) {}
  ~BatchHandle() { writer_->stop(); }
  BatchHandle(const BatchHandle&) = delete;
  BatchHandle& operator=(const BatchHandle&) = delete;

  BatchWriter& writer() const { return *writer_; }

 private:
  std::shared_ptr<BatchWriter> writer_;
};

}  // namespace boost::logging::detail
