// SPDX-License-Identifier: MIT
#include <iostream>
#include <mutex>

#include "boost/logging/callables.hpp"
#include "logmanager/threads/process_lock.h"
#include "logmanager/threads/thread_state.h"
#include "platform/quiet_writes.h"

namespace boost::logging {
namespace {

// The stream is free of data races only as long as it is synchronised with stdio, which an application may end.
constinit detail::ProcessLock coutLock;

void write(const std::string& _message) {
  platform::QuietWrites quiet;
  try {
    // A disk that was full, or a pipe that was closed, may have become usable again.
    if (!std::cout.good()) std::cout.clear();
    std::cout.write(_message.data(), static_cast<std::streamsize>(_message.size())).flush();
    if (std::cout.good()) return;
  } catch (...) {
    // The application may have asked the stream for exceptions.
    quiet.consume();
    throw;
  }
  quiet.consume();
}

}  // namespace

void write_to_cout(const std::string& /*_logName*/, const std::string& _message) {
  detail::ThreadState& thread = detail::threadState();
  // The buffer of the stream may be an application's, and log.
  if (detail::InsideMark::isSet(thread, coutLock)) {
    write(_message);
    return;
  }
  const std::lock_guard<detail::ProcessLock> lock(coutLock);
  const detail::InsideMark mark(thread, coutLock);
  write(_message);
}

}  // namespace boost::logging
