// SPDX-License-Identifier: MIT
#include "logsetup/output_file_stream.h"

namespace Quillmark_logging {

void OutputFileStream::open(const std::string& _path, Mode _mode) {
  if (is_open() || !buffer_.file.open(_path, _mode)) setstate(std::ios_base::failbit);
}

void OutputFileStream::close() {
  if (!buffer_.file.close()) setstate(std::ios_base::failbit);
}

OutputFileStream::Buffer::int_type OutputFileStream::Buffer::overflow(int_type _character) {
  if (traits_type::eq_int_type(_character, traits_type::eof())) return traits_type::not_eof(_character);
  const char character = traits_type::to_char_type(_character);
  return xsputn(&character, 1) == 1 ? _character : traits_type::eof();
}

std::streamsize OutputFileStream::Buffer::xsputn(const char* _text, std::streamsize _size) {
  if (_size <= 0) return 0;
  return file.isOpen() && file.write(_text, static_cast<std::size_t>(_size)) ? _size : 0;
}

OutputFileStream::Buffer::pos_type OutputFileStream::Buffer::seekoff(off_type _offset, std::ios_base::seekdir _from,
                                                                     std::ios_base::openmode /*_which*/) {
  const bool isAsked = _offset == 0 && _from == std::ios_base::cur;
  return {isAsked ? off_type{file.position()} : off_type{-1}};
}

}  // namespace Quillmark_logging
