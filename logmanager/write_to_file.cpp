// SPDX-License-Identifier: MIT
#include "boost/logging/callables.hpp"
#include "logmanager/shared_append_file.h"
#include "logmanager/thread_state.h"

namespace boost::logging {

class write_to_file::state : public detail::SharedAppendFile {
 public:
  using SharedAppendFile::SharedAppendFile;
};

write_to_file::write_to_file(const std::string& _fileName, bool _overwrite)
    : state_(new state(_fileName, _overwrite)) {}

void write_to_file::operator()(const std::string& /*_logName*/, const std::string& _message) const { write(_message); }

void write_to_file::write(const std::string& _message) const {
  detail::ThreadState& thread = detail::threadState();
  state_->append(thread, _message, detail::messageTime(thread));
}

}  // namespace boost::logging
