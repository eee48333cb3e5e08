// SPDX-License-Identifier: MIT
#pragma once

#include <streambuf>

namespace boost::logging::detail {

class StatementStream;

/// Takes what the machinery of std::ostream makes, which goes behind the text of the stream. Has no memory of its own.
class LineBuffer : public std::streambuf {
 public:
  explicit LineBuffer(StatementStream& _stream) : stream_(_stream) {}

 protected:
  int_type overflow(int_type _character) override;
  std::streamsize xsputn(const char* _text, std::streamsize _size) override;
  /// Tells the position, for tellp(); nothing else.
  pos_type seekoff(off_type _offset, std::ios_base::seekdir _from, std::ios_base::openmode _which) override;

 private:
  StatementStream& stream_;
};

}  // namespace boost::logging::detail
