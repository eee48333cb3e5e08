// SPDX-License-Identifier: MIT
#include "logmanager/line_buffer.h"

#include "logmanager/statement_stream.h"

namespace boost::logging::detail {

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

}  // namespace boost::logging::detail
