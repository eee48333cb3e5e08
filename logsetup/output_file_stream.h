// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

#include "platform/positioned_file.h"

namespace Quillmark_logging {

/// The stream of a log file: like std::ofstream, but on a file of the platform layer and without a buffer, so that it
/// never retries what failed to reach the file. It knows its position but cannot change it.
class OutputFileStream : public std::ostream {
 public:
  using Mode = platform::PositionedFile::Mode;

  /// Opens nothing yet.
  OutputFileStream() : std::ostream(nullptr) { rdbuf(&buffer_); }
  OutputFileStream(const OutputFileStream&) = delete;
  OutputFileStream& operator=(const OutputFileStream&) = delete;

  /// Opens the file as PositionedFile::open does. A failure sets the state failbit, like a file that is open already; a
  /// success leaves the state as it is.
  void open(const std::string& _path, Mode _mode);

  /// Closes the file; sets the state failbit when none is open.
  void close();

  // NOLINTNEXTLINE(readability-identifier-naming): the name that it has in std::ofstream.
  bool is_open() const { return buffer_.file.isOpen(); }

  /// Why the latest opening or writing failed.
  platform::ErrorCode error() const { return buffer_.file.error(); }

 private:
  struct Buffer : std::streambuf {
    int_type overflow(int_type _character) override;
    std::streamsize xsputn(const char* _text, std::streamsize _size) override;
    pos_type seekoff(off_type _offset, std::ios_base::seekdir _from, std::ios_base::openmode _which) override;

    platform::PositionedFile file;
  };

  Buffer buffer_;
};

}  // namespace Quillmark_logging
