// SPDX-License-Identifier: MIT
#include "platform/positioned_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/fault.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/file_write.h"
#include "platform/linux/fork_count.h"
#include "platform/linux/open_file.h"
#include "platform/native_path.h"

namespace platform {
namespace {

FileIdentity identityOf(const struct stat& _status) {
  return {static_cast<std::uint64_t>(_status.st_dev), static_cast<std::uint64_t>(_status.st_ino)};
}

}  // namespace

FileIdentity identityOfFileAt(const std::string& _path) {
  struct stat status {};
  return ::stat(nativePath(_path).c_str(), &status) == 0 ? identityOf(status) : FileIdentity();
}

bool PositionedFile::open(const std::string& _path, Mode _mode) {
  if (injectedFault(Call::openForWriting) != noError) return false;
  const int flags = O_WRONLY | O_CREAT | (_mode == Mode::truncate ? O_TRUNC : O_APPEND);
  FileDescriptor file(openFile(_path, flags, FileRole::log));
  // Appending alone would leave the position at 0 until the first byte is written.
  if (!file.isOpen() || ::lseek(file.get(), 0, SEEK_END) == -1) return false;
  file_ = file.release();
  isCounted_ = _mode == Mode::truncate;
  counted_ = 0;
  forksAtOpen_ = forkCount();
  refreshFileSizeLimit();
  return true;
}

bool PositionedFile::close() {
  if (!isOpen()) return false;
  if (injectedFault(Call::closeFile) == noError) closeDescriptor(file_);
  file_ = -1;
  return true;
}

bool PositionedFile::write(const char* _text, std::size_t _size) {
  std::size_t done = 0;
  while (done < _size) {
    if (injectedFault(Call::write) != noError) return false;
    const ssize_t written = writeToFile(file_, _text + done, _size - done);
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
    counted_ += written;
  }
  return true;
}

// To ask costs a call of the system.
std::int64_t PositionedFile::position() {
  if (!isOpen()) return -1;
  return isCounted_ && forkCount() == forksAtOpen_ ? counted_ : ::lseek(file_, 0, SEEK_CUR);
}

FileIdentity PositionedFile::identity() const {
  struct stat status {};
  return ::fstat(file_, &status) == 0 ? identityOf(status) : FileIdentity();
}

}  // namespace platform
