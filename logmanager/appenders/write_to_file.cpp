// SPDX-License-Identifier: MIT
#include "boost/logging/callables.hpp"
#include "logmanager/appenders/shared_append_file.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging {

write_to_file::write_to_file(const std::string& _fileName, bool _overwrite)
    : file_(new detail::SharedAppendFile(_fileName, _overwrite)) {}

void write_to_file::operator()(const std::string& /*_logName*/, const std::string& _message) const {
  detail::ThreadState& thread = detail::threadState();
  file_->append(_message, detail::messageTime(thread));
}

}  // namespace boost::logging
