// SPDX-License-Identifier: MIT
#include "tools/system/terminal.h"

#include <io.h>

#include <cstdio>

namespace toolsystem {

bool isTerminal(Stream _stream) {
  std::FILE* const file = _stream == Stream::input ? stdin : _stream == Stream::output ? stdout : stderr;
  return ::_isatty(::_fileno(file)) != 0;
}

// Windows has no such signal; the write fails by itself.
void ignoreClosedPipes() {}

// No file takes the place of a stream.
void reserveClosedStreams() {}

}  // namespace toolsystem
