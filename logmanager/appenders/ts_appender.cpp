// SPDX-License-Identifier: MIT
#include "logmanager/appenders/ts_appender.h"

#include <boost/chrono/duration.hpp>
#include <boost/thread/thread.hpp>

#include "logmanager/appenders/writer_threads.h"
#include "platform/cancellation.h"

namespace boost::logging {
namespace detail {
namespace {

constexpr boost::chrono::milliseconds startDelay{100};

}  // namespace

BatchHandle::BatchHandle(const appender& _wrapped, int _sleepMs)
    : writer_(std::make_shared<BatchWriter>(_wrapped, _sleepMs)) {
  writerThreads().add(writer_);
}

BatchHandle::~BatchHandle() {
  const platform::CancellationDelay delay;
  writer_->stop();
  writerThreads().remove(*writer_);
}

void BatchHandle::attend() {
  const platform::CancellationDelay delay;
  if (!writer_->attend() || !writerThreads().start(*writer_)) return;
  const boost::this_thread::disable_interruption uninterrupted;
  boost::this_thread::sleep_for(startDelay);
}

}  // namespace detail

ts_appender::ts_appender(const appender& _wrapped, int _sleepMs)
    : handle_(new detail::BatchHandle(_wrapped, _sleepMs)) {}

void ts_appender::operator()(const std::string& /*_logName*/, const std::string& _message) const {
  handle_->append(_message);
}

}  // namespace boost::logging
