// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

// Lines of the console trace. The formats are those of printf and include the line end, if the line has one. Each call
// that prints makes one write to the console, of any length. Any thread may call; lines of several threads may
// interleave.

/// Prints when the trace of the free functions is on.
[[gnu::format(printf, 1, 2)]] void traceLine(const char* _format, ...);

/// Prints when _on is true: for classes with a trace switch of their own.
[[gnu::format(printf, 2, 3)]] void traceLineIf(bool _on, const char* _format, ...);

/// Prints always.
[[gnu::format(printf, 1, 2)]] void consoleLine(const char* _format, ...);

/// "true" or "false".
const char* boolName(bool _value) noexcept;

/// What "%s" prints when it gets the string object instead of its text: the object's own first bytes up to a NUL, never
/// more than the object has. Some trace lines must show this.
std::string objectBytes(const std::string& _object);

}  // namespace Quillmark_logging
