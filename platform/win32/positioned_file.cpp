// SPDX-License-Identifier: MIT
#include "platform/positioned_file.h"

#include <fcntl.h>
#include <io.h>

#include "platform/fault.h"
#include "platform/win32/last_error.h"
#include "platform/win32/run_time_file.h"

namespace platform {

bool PositionedFile::open(const std::string& _path, Mode _mode) {
  if (const ErrorCode fault = injectedFault(Call::openForWriting); fault != noError) return fails(fault);
  file_ = openRunTimeFile(_path, _O_WRONLY | _O_CREAT | (_mode == Mode::truncate ? _O_TRUNC : _O_APPEND));
  // Appending alone would leave the position at 0 until the first byte is written.
  if (isOpen() && ::_lseeki64(file_, 0, SEEK_END) == -1) close();
  return isOpen() || fails(lastErrorCode());
}

bool PositionedFile::close() {
  if (!isOpen()) return false;
  closeRunTimeFile(file_);
  file_ = -1;
  return true;
}

// The run-time leaves the reason of the system where it was.
bool PositionedFile::write(const char* _text, std::size_t _size) {
  return writeToRunTimeFile(file_, _text, _size) || fails(lastErrorCode());
}

bool PositionedFile::fails(ErrorCode _error) {
  error_ = _error;
  return false;
}

std::int64_t PositionedFile::position() { return isOpen() ? ::_telli64(file_) : -1; }

}  // namespace platform
