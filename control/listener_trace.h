// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <iostream>
#include <locale>
#include <sstream>

#include "trace/trace_flags.h"

namespace Quillmark_logging {

// The trace of LogEventHandler. It goes to the standard streams, not to the console, and follows the switch as it was
// when the library was loaded. A line and its end are inserted in one piece: lines of several threads do not mix, and
// neither the flags nor the locale that an application has set on the stream change how numbers look.

template <class... Parts>
void traceTo(std::ostream& _stream, const Parts&... _parts) {
  if (!loadTimeTrace()) return;
  try {
    std::ostringstream line;
    line.imbue(std::locale::classic());
    (line << ... << _parts) << '\n';
    _stream << line.str() << std::flush;
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
