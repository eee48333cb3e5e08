// SPDX-License-Identifier: MIT
#include <iostream>
#include <mutex>

#include "boost/logging/callables.hpp"

namespace boost::logging {
namespace {

// The stream is free of data races only as long as it is synchronised with stdio, which an application may end.
// Recursive, as the buffer of the stream may be an application's, and log.
std::recursive_mutex& coutLock() {
  static std::recursive_mutex lock;
  return lock;
}

}  // namespace

void write_to_cout(const std::string& /*_logName*/, const std::string& _message) {
  const std::lock_guard<std::recursive_mutex> lock(coutLock());
  std::cout.write(_message.data(), static_cast<std::streamsize>(_message.size())).flush();
}

}  // namespace boost::logging
