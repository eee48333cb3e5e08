// SPDX-License-Identifier: MIT
// A process with a listener whose trace goes to the standard output. It ends, the friendly way, with its input.
#include <iostream>
#include <string>

#include "platform/named_event.h"
#include "platform/thread.h"
#include "quillmark_logging.h"
#include "trace/trace_flags.h"

int main() {
  Quillmark_logging::setLoadTimeTrace(true);
  LogEventHandler handler;
  std::string line;
  while (std::getline(std::cin, line)) {
  }
  handler.setListenForEventState(false);
  const platform::Handle event = platform::openEvent(handler.getLogEventName());
  platform::setEvent(event);
  platform::waitForThread(handler.getThreadHandle(), platform::waitForever);
  platform::closeHandle(event);
  return 0;
}
