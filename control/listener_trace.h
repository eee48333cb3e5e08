// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <iostream>
#include <locale>
#include <sstream>
#include <string>

#include "trace/trace_flags.h"

namespace Quillmark_logging {

// The trace of LogEventHandler. It goes to the standard streams, not to the console, and follows the switch as it was
// when the library was loaded. Each line is inserted in one piece with its end: lines of several threads do not mix,
// and the flags and locale that an application sets on the stream do not change how numbers look.

/// Writes the line at once. A full disk, a pipe that nobody reads and a file size limit end neither the process nor the
/// stream: the next line tries again. Passes on what the stream throws.
void writeTraceLine(std::ostream& _stream, const std::string& _line);

template <class... Parts>
void traceTo(std::ostream& _stream, const Parts&... _parts) {
  if (!loadTimeTrace()) return;
  try {
    std::ostringstream line;
    line.imbue(std::locale::classic());
    (line << ... << _parts) << '\n';
    writeTraceLine(_stream, line.str());
  } catch (const std::exception&) {
    return;
  }
}

template <class... Parts>
void traceOut(const Parts&... _parts) {
  traceTo(std::cout, _parts...);
}

template <class... Parts>
void traceError(const Parts&... _parts) {
  traceTo(std::cerr, _parts...);
}

}  // namespace Quillmark_logging
