// SPDX-License-Identifier: MIT
#include "tools/system/terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace toolsystem {

bool isTerminal(Stream _stream) {
  const int descriptor = _stream == Stream::input    ? STDIN_FILENO
                         : _stream == Stream::output ? STDOUT_FILENO
                                                     : STDERR_FILENO;
  return ::isatty(descriptor) != 0;
}

void reserveClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // The lowest number that is free is this one. It stays open to the end.
    if (::fcntl(stream, F_GETFD) == -1 && ::open("/dev/null", O_RDONLY | O_CLOEXEC) < 0) return;
  }
}

void ignoreClosedPipes() { std::signal(SIGPIPE, SIG_IGN); }

}  // namespace toolsystem
