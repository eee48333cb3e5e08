// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_DETAIL_LOG_STREAM_HPP
#define BOOST_LOGGING_DETAIL_LOG_STREAM_HPP

#include <cstddef>
#include <cstring>
#include <ostream>
#include <string>
#include <type_traits>

#include "boost/logging/detail/export.hpp"

namespace boost {
namespace logging {
namespace detail {

/// The stream of one logging statement: a std::ostream in every respect. While it is in its initial formatting state,
/// values of the types below go into the message without the machinery of a stream, mostly inline and with the same
/// text. Everything else goes through the operators of std::ostream.
class BOOST_LOGGING_TYPE log_stream : public std::ostream {
 public:
  ~log_stream() override;
  log_stream(const log_stream&) = delete;
  log_stream& operator=(const log_stream&) = delete;

  /// Whether numbers have their default format.
  bool is_plain() const {
    return flags() == (std::ios_base::skipws | std::ios_base::dec) && width() == 0 && !hasOtherLocale_;
  }

  void put(const char* _text, std::size_t _size) {
    if (good() && width() == 0 && static_cast<std::size_t>(end_ - position_) >= _size) {
      std::memcpy(position_, _text, _size);
      position_ += _size;
    } else {
      put_otherwise(_text, _size);
    }
  }
  /// Inline, so that the compiler knows the size of a literal.
  void put(const char* _text) {
    if (_text == nullptr) {
      setstate(std::ios_base::badbit);
    } else {
      put(_text, std::strlen(_text));
    }
  }
  void put(char _character) { put(&_character, 1); }
  void put(long long _value) {
    if (_value >= 0) {
      put(static_cast<unsigned long long>(_value));
    } else {
      put('-');
      put(0 - static_cast<unsigned long long>(_value));
    }
  }
  void put(unsigned long long _value) {
    if (_value < 10) {
      put(static_cast<char>('0' + _value));
    } else {
      put_digits(_value);
    }
  }

 protected:
  explicit log_stream(std::streambuf* _buffer);

  /// The end of the text, and the end of the room for it.
  char* position_ = nullptr;
  char* end_ = nullptr;
  /// Whether the locale is not the classic one, or something has changed that cannot be queried.
  bool hasOtherLocale_ = false;

 private:
  BOOST_LOGGING_API void put_otherwise(const char* _text, std::size_t _size);
  BOOST_LOGGING_API void put_digits(unsigned long long _value);
};

/// The type as which a value goes into the stream; no member type for values that are left to std::ostream.
template <typename T>
struct put_as {};

// clang-format off
template <> struct put_as<const char*> { using type = const char*; };
template <> struct put_as<char*> { using type = const char*; };
template <> struct put_as<char> { using type = char; };
template <> struct put_as<bool> { using type = unsigned long long; };
template <> struct put_as<short> { using type = long long; };
template <> struct put_as<int> { using type = long long; };
template <> struct put_as<long> { using type = long long; };
template <> struct put_as<long long> { using type = long long; };
template <> struct put_as<unsigned short> { using type = unsigned long long; };
template <> struct put_as<unsigned int> { using type = unsigned long long; };
template <> struct put_as<unsigned long> { using type = unsigned long long; };
template <> struct put_as<unsigned long long> { using type = unsigned long long; };
// clang-format on

/// By value, so that an array becomes a pointer, and no reference binds to a bit-field or to a constant that has no
/// definition.
template <typename T, typename As = typename put_as<T>::type>
log_stream& operator<<(log_stream& _stream, T _value) {
  if (std::is_arithmetic<T>::value && !_stream.is_plain()) {
    static_cast<std::ostream&>(_stream) << _value;
  } else {
    _stream.put(static_cast<As>(_value));
  }
  return _stream;
}

template <typename Traits, typename Allocator>
log_stream& operator<<(log_stream& _stream, const std::basic_string<char, Traits, Allocator>& _text) {
  _stream.put(_text.data(), _text.size());
  return _stream;
}

}  // namespace detail
}  // namespace logging
}  // namespace boost

#endif
