// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>
#include <streambuf>
#include <string>
#include <string_view>

namespace boost::logging::detail {

/// The text of a message while a statement makes it. Keeps its memory from one message to the next, unless a message
/// was very long. One thread at a time may use an object.
class LineBuffer : public std::streambuf {
 public:
  LineBuffer();

  /// Begins an empty text.
  void restart() {
    if (memory_.size() > LARGEST_KEPT_SIZE) shrink();
    setp(memory_.data(), memory_.data() + memory_.size());
  }

  void append(const char* _text, std::size_t _size) {
    if (_size > USUAL_SIZE || static_cast<std::size_t>(epptr() - pptr()) < _size) {
      appendMuch(_text, _size);
      return;
    }
    std::memcpy(pptr(), _text, _size);
    pbump(static_cast<int>(_size));
  }

  /// Where so many bytes, a few, can be put behind the text, of which advance() then makes a part of it.
  char* room(std::size_t _size) {
    if (static_cast<std::size_t>(epptr() - pptr()) < _size) grow(_size);
    return pptr();
  }

  void advance(std::size_t _size) { pbump(static_cast<int>(_size)); }

  std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

 protected:
  int_type overflow(int_type _character) override;
  std::streamsize xsputn(const char* _text, std::streamsize _size) override;
  /// Tells the position, for tellp(); nothing else.
  pos_type seekoff(off_type _offset, std::ios_base::seekdir _from, std::ios_base::openmode _which) override;

 private:
  static constexpr std::size_t USUAL_SIZE = 512;
  static constexpr std::size_t LARGEST_KEPT_SIZE = 65536;

  void appendMuch(const char* _text, std::size_t _size);
  void shrink();
  void grow(std::size_t _room);
  void putAreaFrom(std::size_t _size);

  std::string memory_;
};

}  // namespace boost::logging::detail
