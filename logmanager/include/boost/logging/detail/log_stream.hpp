// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_DETAIL_LOG_STREAM_HPP
#define BOOST_LOGGING_DETAIL_LOG_STREAM_HPP

#include <cstddef>
#include <cstring>
#include <ostream>
#include <string>

#include "boost/logging/detail/export.hpp"

namespace boost {
namespace logging {
namespace detail {

/// The stream of one logging statement: a std::ostream in every respect. As long as a statement inserts nothing but the
/// types below, the stream is in its initial formatting state, and their text goes into the message without the
/// machinery of a stream; it is the text that the stream would make. Whatever else is inserted goes through the
/// operators of std::ostream, and so does everything after it in the statement.
class BOOST_LOGGING_TYPE log_stream : public std::ostream {
 public:
  ~log_stream() override;
  log_stream(const log_stream&) = delete;
  log_stream& operator=(const log_stream&) = delete;

  BOOST_LOGGING_API void put(const char* _text, std::size_t _size);
  /// In the caller, so that a literal's size is no work at run time.
  void put(const char* _text) {
    if (_text == nullptr) {
      setstate(std::ios_base::badbit);
    } else {
      put(_text, std::strlen(_text));
    }
  }
  BOOST_LOGGING_API void put(char _character);
  BOOST_LOGGING_API void put(long long _value);
  BOOST_LOGGING_API void put(unsigned long long _value);

 protected:
  explicit log_stream(std::streambuf* _buffer);
};

/// As what a value of a type is put into the stream; no member type for one that is left to std::ostream.
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
  _stream.put(static_cast<As>(_value));
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
