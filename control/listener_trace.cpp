// SPDX-License-Identifier: MIT
#include "control/listener_trace.h"

#include "platform/quiet_writes.h"

namespace Quillmark_logging {

void writeTraceLine(std::ostream& _stream, const std::string& _line) {
  platform::QuietWrites quiet;
  try {
    if (!_stream.good()) _stream.clear();
    _stream << _line << std::flush;
    if (_stream.good()) return;
  } catch (...) {
    // The application may have asked the stream for exceptions.
    quiet.consume();
    throw;
  }
  quiet.consume();
}

}  // namespace Quillmark_logging
