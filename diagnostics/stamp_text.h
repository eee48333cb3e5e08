// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "diagnostics/decimal_text.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {

// The text of the stamps, apart from where their numbers come from. These functions trace themselves; any thread may
// call them.

/// The stamp of an id: its digits, formatted "[<digits>] ".
/// @param _function the exported function that the trace names.
/// @return "-1" for an id that cannot be turned into text.
template <class Id>
std::string idStamp(const char* _function, const Id& _id, bool _formatted) {
  traceLine("==> Quillmark_logging::%s() _formatted=%s\r\n", _function, boolName(_formatted));
  try {
    const std::string digits = decimalText(_id);
    std::string stamp = _formatted ? "[" + digits + "] " : digits;
    traceLine("<== Quillmark_logging::%s() %s (%s)\r\n", _function, stamp.c_str(),
              _formatted ? "Formatted" : "Unformatted");
    return stamp;
  } catch (const boost::bad_lexical_cast&) {
    traceLine("<!- Quillmark_logging::%s() ERROR: Exception bad_lexical_cast caught!\r\n", _function);
    return "-1";
  }
}

/// The text after the last backslash, all of it without one. A slash does not separate.
inline std::string baseName(const std::string& _file) { return _file.substr(_file.rfind('\\') + 1); }

/// "[<function> <base name of the file>:<line>] ".
/// @param _file, _function not null.
/// @return "LOC-ERROR" for a line that cannot be turned into text.
template <class Line>
std::string locationStamp(const char* _file, const Line& _line, const char* _function) {
  traceLine("==> Quillmark_logging::location()\r\n");
  try {
    std::string stamp = std::string("[") + _function + " " + baseName(_file) + ":" + decimalText(_line) + "] ";
    traceLine("<== Quillmark_logging::location() %s\r\n", stamp.c_str());
    return stamp;
  } catch (const boost::bad_lexical_cast&) {
    traceLine("<!= Quillmark_logging::location() ERROR: Exception bad_lexical_cast caught!\r\n");
    return "LOC-ERROR";
  }
}

}  // namespace Quillmark_logging
