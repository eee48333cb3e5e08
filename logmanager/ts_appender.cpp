// SPDX-License-Identifier: MIT
#include <memory>

#include "boost/logging/callables.hpp"
#include "logmanager/batch_writer.h"

namespace boost::logging {

/// What the copies share; its end is the end of the last copy.
class ts_appender::handle {
 public:
  handle(const appender& _wrapped, int _sleepMs) : writer_(std::make_shared<detail::BatchWriter>(_wrapped, _sleepMs)) {}
  ~handle() { writer_->stop(); }
  handle(const handle&) = delete;
  handle& operator=(const handle&) = delete;

  detail::BatchWriter& writer() const { return *writer_; }

 private:
  std::shared_ptr<detail::BatchWriter> writer_;
};

ts_appender::ts_appender(const appender& _wrapped, int _sleepMs) : handle_(new handle(_wrapped, _sleepMs)) {}

void ts_appender::operator()(const std::string& /*_logName*/, const std::string& _message) const {
  handle_->writer().append(_message);
}

}  // namespace boost::logging
