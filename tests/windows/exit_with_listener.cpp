// SPDX-License-Identifier: MIT
// exit_with_listener abandoned|static: ends while a listener waits for its event: one that nobody destroys, or one that
// the run-time destroys at the end.
#include <string>

#include "quillmark_logging.h"

namespace {

const LogEventHandler& abandonedListener() { return *new LogEventHandler; }

const LogEventHandler& staticListener() {
  static const LogEventHandler listener;
  return listener;
}

}  // namespace

int main(int _count, char** _arguments) {
  if (_count != 2) return 2;
  const bool isStatic = std::string(_arguments[1]) == "static";
  return (isStatic ? staticListener() : abandonedListener()).isCreated() == 1 ? 0 : 1;
}
