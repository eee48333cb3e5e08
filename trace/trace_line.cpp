// SPDX-License-Identifier: MIT
#include "trace/trace_line.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "platform/console.h"
#include "trace/trace_flags.h"

namespace Quillmark_logging {
namespace {

[[gnu::format(printf, 1, 0)]] void print(const char* _format, va_list _arguments) {
  va_list again;
  va_copy(again, _arguments);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): it does not see the start in the caller
  const int length = std::vsnprintf(nullptr, 0, _format, again);
  va_end(again);
  if (length <= 0) return;
  std::string line(static_cast<std::size_t>(length) + 1, '\0');
  std::vsnprintf(line.data(), line.size(), _format, _arguments);
  line.pop_back();
  platform::writeConsole(line);
}

}  // namespace

void traceLine(const char* _format, ...) {
  if (!freeFunctionTrace()) return;
  va_list arguments;
  va_start(arguments, _format);
  print(_format, arguments);
  va_end(arguments);
}

void traceLineIf(bool _on, const char* _format, ...) {
  if (!_on) return;
  va_list arguments;
  va_start(arguments, _format);
  print(_format, arguments);
  va_end(arguments);
}

void consoleLine(const char* _format, ...) {
  va_list arguments;
  va_start(arguments, _format);
  print(_format, arguments);
  va_end(arguments);
}

const char* boolName(bool _value) noexcept { return _value ? "true" : "false"; }

std::string objectBytes(const std::string& _object) {
  // NOLINTBEGIN(bugprone-sizeof-container): the bytes of the object are wanted, not those of the text.
  const char* bytes = reinterpret_cast<const char*>(&_object);
  const void* end = std::memchr(bytes, '\0', sizeof _object);
  return {bytes, end == nullptr ? bytes + sizeof _object : static_cast<const char*>(end)};
  // NOLINTEND(bugprone-sizeof-container)
}

}  // namespace Quillmark_logging
