// SPDX-License-Identifier: MIT
#include "logmanager/line_buffer.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace boost::logging::detail {
LineBuffer::LineBuffer() : memory_(USUAL_SIZE, '\0') { putAreaFrom(0); }

void LineBuffer::shrink() {
  memory_.resize(USUAL_SIZE);
  memory_.shrink_to_fit();
}

void LineBuffer::appendMuch(const char* _text, std::size_t _size) {
  if (static_cast<std::size_t>(epptr() - pptr()) < _size) grow(_size);
  std::memcpy(pptr(), _text, _size);
  if (_size <= static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    pbump(static_cast<int>(_size));
  } else {
    putAreaFrom(text().size() + _size);
  }
}

LineBuffer::int_type LineBuffer::overflow(int_type _character) {
  if (traits_type::eq_int_type(_character, traits_type::eof())) return traits_type::not_eof(_character);
  const char character = traits_type::to_char_type(_character);
  append(&character, 1);
  return _character;
}

std::streamsize LineBuffer::xsputn(const char* _text, std::streamsize _size) {
  append(_text, static_cast<std::size_t>(_size));
  return _size;
}

LineBuffer::pos_type LineBuffer::seekoff(off_type _offset, std::ios_base::seekdir _from,
                                         std::ios_base::openmode _which) {
  const bool tells = _offset == 0 && _from == std::ios_base::cur && (_which & std::ios_base::out) != 0;
  return tells ? pos_type(static_cast<off_type>(text().size())) : pos_type(off_type(-1));
}

void LineBuffer::grow(std::size_t _room) {
  const std::size_t used = text().size();
  memory_.resize(std::max(2 * memory_.size(), used + _room));
  putAreaFrom(used);
}

void LineBuffer::putAreaFrom(std::size_t _size) {
  setp(memory_.data(), memory_.data() + memory_.size());
  for (; _size > static_cast<std::size_t>(std::numeric_limits<int>::max());
       _size -= static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    pbump(std::numeric_limits<int>::max());
  }
  pbump(static_cast<int>(_size));
}

}  // namespace boost::logging::detail
