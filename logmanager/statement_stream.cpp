// SPDX-License-Identifier: MIT
#include "logmanager/statement_stream.h"

#include <charconv>
#include <cstring>
#include <ios>
#include <limits>
#include <locale>

namespace boost::logging::detail {
namespace {

LineBuffer& bufferOf(log_stream& _stream) { return static_cast<StatementStream&>(_stream).buffer(); }

template <typename Integer>
void putInteger(log_stream& _stream, Integer _value) {
  char digits[std::numeric_limits<Integer>::digits10 + 2];
  const char* const end = std::to_chars(digits, digits + sizeof(digits), _value).ptr;
  _stream.put(digits, static_cast<std::size_t>(end - digits));
}

/// The state of a stream that nothing was inserted into; its locale is the classic one.
const std::ios& initialState() {
  static const std::ios* const state = [] {
    auto* const initial = new std::ios(nullptr);
    initial->imbue(std::locale::classic());
    return initial;
  }();
  return *state;
}

}  // namespace

log_stream::log_stream(std::streambuf* _buffer) : std::ostream(_buffer) {}

log_stream::~log_stream() = default;

void log_stream::put(const char* _text, std::size_t _size) {
  if (!good()) return;
  try {
    bufferOf(*this).append(_text, _size);
  } catch (...) {
    setstate(std::ios_base::badbit);
  }
}

void log_stream::put(const char* _text) {
  if (_text == nullptr) {
    setstate(std::ios_base::badbit);
  } else {
    put(_text, std::strlen(_text));
  }
}

void log_stream::put(char _character) { put(&_character, 1); }

void log_stream::put(long long _value) { putInteger(*this, _value); }

void log_stream::put(unsigned long long _value) { putInteger(*this, _value); }

StatementStream::StatementStream(Context& _context) : log_stream(nullptr), context_(_context) { putBack(); }

void StatementStream::restart() {
  if (mayBeChanged_ || !good()) putBack();
  buffer_.restart();
}

void StatementStream::putBack() {
  copyfmt(initialState());
  rdbuf(&buffer_);
  mayBeChanged_ = false;
}

}  // namespace boost::logging::detail
