// SPDX-License-Identifier: MIT
// exit_with_listener abandoned|static: ends while a listener waits for its event: one that nobody destroys, or one that
// the run-time destroys at the end.
#include <chrono>
#include <string>
#include <thread>

#include "platform/named_event.h"
#include "quillmark_logging.h"
#include "tests/support/sleeping_thread.h"

namespace {

const LogEventHandler& abandonedListener() { return *new LogEventHandler; }

const LogEventHandler& staticListener() {
  static const LogEventHandler listener;
  return listener;
}

// Its thread makes the event, traces that, and then waits for it.
bool waitUntilListening(const LogEventHandler& _listener) {
  for (int tries = 0; tries < 3000; ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    const platform::Handle event = platform::openEvent("QMRK_LOG_EVENT");
    if (event == nullptr) continue;
    platform::closeHandle(event);
    return testsupport::waitUntilThreadSleeps(_listener.getThreadId());
  }
  return false;
}

}  // namespace

int main(int _count, char** _arguments) {
  if (_count != 2) return 2;
  const bool isStatic = std::string(_arguments[1]) == "static";
  const LogEventHandler& listener = isStatic ? staticListener() : abandonedListener();
  return listener.isCreated() == 1 && waitUntilListening(listener) ? 0 : 1;
}
