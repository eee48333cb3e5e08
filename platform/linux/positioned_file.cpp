// SPDX-License-Identifier: MIT
#include "platform/positioned_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/fault.h"
#include "platform/linux/errno_code.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/file_write.h"
#include "platform/linux/fork_count.h"
#include "platform/linux/open_file.h"

namespace platform {

bool PositionedFile::open(const std::string& _path, Mode _mode) {
  if (const ErrorCode fault = injectedFault(Call::openForWriting); fault != noError) return fails(fault);
  const int flags = O_WRONLY | O_CREAT | (_mode == Mode::truncate ? O_TRUNC : O_APPEND);
  FileDescriptor file(openFile(_path, flags, FileRole::log));
  // Appending alone would leave the position at 0 until the first byte is written.
  if (!file.isOpen() || ::lseek(file.get(), 0, SEEK_END) == -1) return fails(errnoCode(errno));
  file_ = file.release();
  isCounted_ = _mode == Mode::truncate;
  counted_ = 0;
  forksAtOpen_ = forkCount();
  refreshFileSizeLimit();
  return true;
}

bool PositionedFile::close() {
  if (!isOpen()) return false;
  // In this order, as a process can be forked between the two: its child must not close what has the number by then.
  const int file = std::exchange(file_, -1);
  if (injectedFault(Call::closeFile) == noError) closeDescriptor(file);
  return true;
}

bool PositionedFile::write(const char* _text, std::size_t _size) {
  std::size_t done = 0;
  while (done < _size) {
    if (const ErrorCode fault = injectedFault(Call::write); fault != noError) return fails(fault);
    const ssize_t written = writeToFile(file_, _text + done, _size - done);
    if (written <= 0) return fails(errnoCode(errno));
    done += static_cast<std::size_t>(written);
    counted_ += written;
  }
  return true;
}

bool PositionedFile::fails(ErrorCode _error) {
  error_ = _error;
  return false;
}

// To ask costs a call of the system.
std::int64_t PositionedFile::position() {
  if (!isOpen()) return -1;
  return isCounted_ && forkCount() == forksAtOpen_ ? counted_ : ::lseek(file_, 0, SEEK_CUR);
}

}  // namespace platform
