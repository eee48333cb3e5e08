// SPDX-License-Identifier: MIT
#include "tools/system/terminal.h"

#include <unistd.h>

#include <csignal>

namespace toolsystem {

bool isTerminal(Stream _stream) {
  const int descriptor = _stream == Stream::input    ? STDIN_FILENO
                         : _stream == Stream::output ? STDOUT_FILENO
                                                     : STDERR_FILENO;
  return ::isatty(descriptor) != 0;
}

void ignoreClosedPipes() { std::signal(SIGPIPE, SIG_IGN); }

}  // namespace toolsystem
