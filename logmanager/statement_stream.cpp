// SPDX-License-Identifier: MIT
#include "logmanager/statement_stream.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <ios>
#include <limits>
#include <locale>

namespace boost::logging::detail {
namespace {

LineBuffer& bufferOf(log_stream& _stream) { return static_cast<StatementStream&>(_stream).buffer(); }

/// Of a number, with its sign.
constexpr std::size_t MOST_DIGITS = std::numeric_limits<unsigned long long>::digits10 + 2;

/// "00" to "99". std::to_chars has such a table, too, but takes twice the instructions.
constexpr auto PAIRS = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

const char* pairOf(std::size_t _number) { return &PAIRS[2 * _number]; }

/// 0, 10, 100 and so on, to the largest that the type holds.
constexpr auto POWERS = [] {
  std::array<unsigned long long, 20> powers{0, 10};
  for (std::size_t i = 2; i < powers.size(); ++i)
    powers[i] = 10 * powers[i - 1];
  return powers;
}();

std::size_t digitCount(unsigned long long _value) {
  // 1233 / 4096 is the decimal logarithm of 2, near enough for 64 bits.
  const auto count = static_cast<std::size_t>(std::bit_width(_value | 1)) * 1233 / 4096;
  return _value < POWERS[count] ? count : count + 1;
}

/// Puts the last pairs of digits before _end as long as the value is larger than _largest; returns where they begin.
template <typename Integer>
char* putPairs(char* _end, Integer& _value, Integer _largest) {
  for (; _value > _largest; _value /= 100) {
    _end -= 2;
    std::memcpy(_end, pairOf(static_cast<std::size_t>(_value % 100)), 2);
  }
  return _end;
}

/// Puts all digits at the place; returns how many there are.
std::size_t putDigits(char* _place, unsigned long long _value) {
  const std::size_t count = digitCount(_value);
  // Most numbers fit into 32 bits, with which divisions cost half.
  char* const end = putPairs(_place + count, _value, 0xFFFFFFFFULL);
  auto rest = static_cast<std::uint32_t>(_value);
  putPairs(end, rest, std::uint32_t{99});
  if (rest >= 10) {
    std::memcpy(_place, pairOf(rest), 2);
  } else {
    *_place = static_cast<char>('0' + rest);
  }
  return count;
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
  if (_value >= 0) {
    put(static_cast<unsigned long long>(_value));
  } else {
    put('-');
    put(0 - static_cast<unsigned long long>(_value));
  }
}

void log_stream::put(unsigned long long _value) {
  if (!good()) return;
  try {
    LineBuffer& buffer = bufferOf(*this);
    buffer.advance(putDigits(buffer.room(MOST_DIGITS), _value));
  } catch (...) {
    setstate(std::ios_base::badbit);
  }
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
