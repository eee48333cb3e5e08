// SPDX-License-Identifier: MIT
#include "logmanager/statement_stream.h"

#include <array>
#include <cstring>
#include <ios>
#include <limits>
#include <locale>

namespace boost::logging::detail {
namespace {

LineBuffer& bufferOf(log_stream& _stream) { return static_cast<StatementStream&>(_stream).buffer(); }

constexpr std::size_t MOST_DIGITS = std::numeric_limits<unsigned long long>::digits10 + 2;

/// "00" to "99".
constexpr auto PAIRS = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

/// Puts the digits before _end; returns where they begin.
char* putDigits(char* _end, unsigned long long _value) {
  for (; _value >= 100; _value /= 100) {
    _end -= 2;
    std::memcpy(_end, &PAIRS[2 * (_value % 100)], 2);
  }
  if (_value < 10) {
    *--_end = static_cast<char>('0' + _value);
    return _end;
  }
  _end -= 2;
  std::memcpy(_end, &PAIRS[2 * _value], 2);
  return _end;
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

void log_stream::put(char _character) { put(&_character, 1); }

void log_stream::put(long long _value) {
  char digits[MOST_DIGITS];
  char* const end = digits + sizeof(digits);
  const auto magnitude = static_cast<unsigned long long>(_value);
  char* begin = putDigits(end, _value < 0 ? 0 - magnitude : magnitude);
  if (_value < 0) *--begin = '-';
  put(begin, static_cast<std::size_t>(end - begin));
}

void log_stream::put(unsigned long long _value) {
  char digits[MOST_DIGITS];
  char* const end = digits + sizeof(digits);
  const char* const begin = putDigits(end, _value);
  put(begin, static_cast<std::size_t>(end - begin));
}

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
