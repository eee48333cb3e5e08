// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/prepend_time_ms.h"

#include "logmanager/threads/thread_state.h"

namespace boost::logging {

prepend_time_ms::prepend_time_ms(const std::string& _format) : format_(new format(_format)) {}

void prepend_time_ms::operator()(const std::string& /*_logName*/, std::string& _message) const {
  detail::ThreadState& thread = detail::threadState();
  std::string memory;
  _message.insert(0, format_->text(detail::messageTime(thread), thread.timeText, memory));
}

}  // namespace boost::logging
