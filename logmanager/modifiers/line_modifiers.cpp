// SPDX-License-Identifier: MIT
#include <algorithm>

#include "boost/logging/callables.hpp"

namespace boost::logging {

void prepend_prefix(const std::string& _logName, std::string& _message) {
  // The room is made at once, so that the message moves once.
  _message.insert(0, _logName.size() + 3, '[');
  std::string::iterator place = _message.begin() + 1;
  place = std::copy(_logName.begin(), _logName.end(), place);
  *place = ']';
  *(place + 1) = ' ';
}

void append_enter(const std::string& /*_logName*/, std::string& _message) { _message += '\n'; }

}  // namespace boost::logging
