// SPDX-License-Identifier: MIT
#include "logmanager/statement_stream.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <cstring>
#include <ios>
#include <limits>
#include <locale>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace boost::logging::detail {
namespace {

StatementStream& own(log_stream& _stream) { return static_cast<StatementStream&>(_stream); }

/// Of a number, with its sign.
constexpr std::size_t mostDigits = std::numeric_limits<unsigned long long>::digits10 + 2;

/// "00" to "99". std::to_chars has such a table, too, but takes twice the instructions.
constexpr auto digitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

const char* pairOf(std::size_t _number) { return &digitPairs[2 * _number]; }

/// 0, 10, 100 and so on, to the largest that the type holds.
constexpr auto powersOfTen = [] {
  std::array<unsigned long long, 20> powers{0, 10};
  for (std::size_t i = 2; i < powers.size(); ++i)
    powers[i] = 10 * powers[i - 1];
  return powers;
}();

std::size_t digitCount(unsigned long long _value) {
  // 1233 / 4096 is the decimal logarithm of 2, near enough for 64 bits.
  const auto count = static_cast<std::size_t>(std::bit_width(_value | 1)) * 1233 / 4096;
  return _value < powersOfTen[count] ? count : count + 1;
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

}  // namespace

LineBuffer::int_type LineBuffer::overflow(int_type _character) {
  if (traits_type::eq_int_type(_character, traits_type::eof())) return traits_type::not_eof(_character);
  const char character = traits_type::to_char_type(_character);
  stream_.append(&character, 1);
  return _character;
}

std::streamsize LineBuffer::xsputn(const char* _text, std::streamsize _size) {
  stream_.append(_text, static_cast<std::size_t>(_size));
  return _size;
}

LineBuffer::pos_type LineBuffer::seekoff(off_type _offset, std::ios_base::seekdir _from,
                                         std::ios_base::openmode _which) {
  const bool tells = _offset == 0 && _from == std::ios_base::cur && (_which & std::ios_base::out) != 0;
  return tells ? pos_type(static_cast<off_type>(stream_.text().size())) : pos_type(off_type(-1));
}

log_stream::log_stream(std::streambuf* _buffer) : std::ostream(_buffer) {}

log_stream::~log_stream() = default;

void log_stream::put_otherwise(const char* _text, std::size_t _size) {
  if (!good()) return;
  if (width() != 0) {
    static_cast<std::ostream&>(*this) << std::string_view(_text, _size);
    return;
  }
  try {
    own(*this).append(_text, _size);
  } catch (...) {
    setstate(std::ios_base::badbit);
  }
}

void log_stream::put_digits(unsigned long long _value) {
  if (!good()) return;
  try {
    StatementStream& stream = own(*this);
    stream.advance(putDigits(stream.room(mostDigits), _value));
  } catch (...) {
    setstate(std::ios_base::badbit);
  }
}

StatementStream::StatementStream(Context& _context) : log_stream(nullptr), context_(_context), buffer_(*this) {
  putBack();
  memory_.reset(new char[usualSize]);
  memorySize_ = usualSize;
}

void StatementStream::restart(log_stream*& _place) {
  giveMemoryBack();
  lane_ = nullptr;
  restartAt(_place, memory_.get() + roomBefore, memory_.get() + memorySize_);
}

void StatementStream::restart(log_stream*& _place, Lane& _lane) {
  giveMemoryBack();
  lane_ = &_lane;
  restartAt(_place, _lane.textBegin(), _lane.textEnd());
}

void StatementStream::restartAt(log_stream*& _place, char* _begin, char* _end) {
  if (mayBeChanged_) putBack();
  // Until the end of the statement shows what was done to the stream.
  mayBeChanged_ = true;
  place_ = &_place;
  begin_ = _begin;
  position_ = _begin;
  end_ = _end;
}

void StatementStream::append(const char* _text, std::size_t _size) {
  std::memcpy(room(_size), _text, _size);
  position_ += _size;
}

void StatementStream::makeRoom(std::size_t _size) {
  const std::size_t used = text().size();
  if (lane_ == nullptr || !lane_->makeMoreRoom(used, used + _size)) {
    moveToOwnMemory(_size);
    return;
  }
  begin_ = lane_->textBegin();
  position_ = begin_ + used;
  end_ = lane_->textEnd();
}

void StatementStream::moveToOwnMemory(std::size_t _size) {
  const std::string_view former = text();
  const std::size_t size = std::max(2 * memorySize_, roomBefore + former.size() + _size);
  std::unique_ptr<char[]> memory(new char[size]);
  std::memcpy(memory.get() + roomBefore, former.data(), former.size());
  memory_.swap(memory);
  memorySize_ = size;
  begin_ = memory_.get() + roomBefore;
  position_ = begin_ + former.size();
  end_ = memory_.get() + memorySize_;
  lane_ = nullptr;
}

// Where there is no memory for less of it, it stays.
void StatementStream::giveMemoryBack() noexcept {
  if (memorySize_ <= largestKeptSize) return;
  std::unique_ptr<char[]> memory(new (std::nothrow) char[usualSize]);
  if (memory == nullptr) return;
  memory_.swap(memory);
  memorySize_ = usualSize;
}

// The callback comes with the state that is copied, and is called for the copy as for every change of the locale.
void StatementStream::putBack() {
  copyfmt(initialState());
  rdbuf(&buffer_);
  hasOtherLocale_ = false;
  mayBeChanged_ = false;
}

void StatementStream::noteChange(std::ios_base::event /*_event*/, std::ios_base& _stream, int /*_index*/) {
  if (auto* const stream = dynamic_cast<StatementStream*>(&_stream)) stream->hasOtherLocale_ = true;
}

/// The state of a stream that nothing was inserted into; its locale is the classic one.
///
/// Made without the guard of a local static, which a forked child could find taken for ever.
const std::ios& StatementStream::initialState() {
  static constinit std::atomic<const std::ios*> state{nullptr};
  const std::ios* known = state.load(std::memory_order_acquire);
  if (known != nullptr) return *known;
  auto made = std::make_unique<std::ios>(nullptr);
  made->imbue(std::locale::classic());
  made->register_callback(&StatementStream::noteChange, 0);
  if (!state.compare_exchange_strong(known, made.get(), std::memory_order_acq_rel)) return *known;
  return *made.release();
}

}  // namespace boost::logging::detail
