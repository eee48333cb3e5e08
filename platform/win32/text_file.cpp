// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>

#include "platform/fault.h"
#include "platform/win32/append_lock.h"

// The files are those of the C run-time in text mode, which translates the line ends.

namespace platform {
namespace {

constexpr std::size_t LARGEST_WRITE = 1 << 20;

HANDLE handleOf(int _file) { return reinterpret_cast<HANDLE>(::_get_osfhandle(_file)); }

int openFile(const std::string& _path, int _flags) {
  const int file = ::_sopen(_path.c_str(), _flags | _O_TEXT | _O_NOINHERIT, _SH_DENYNO, _S_IREAD | _S_IWRITE);
  // A device has its name in every folder.
  if (file == -1 || ::GetFileType(handleOf(file)) == FILE_TYPE_DISK) return file;
  ::_close(file);
  return -1;
}

void closeFile(int _file) {
  if (_file != -1 && injectedFault(Call::closeFile) == noError) ::_close(_file);
}

}  // namespace

TextReader::TextReader(const std::string& _path) {
  if (injectedFault(Call::openForReading) == noError) file_ = openFile(_path, _O_RDONLY);
  if (file_ == -1 || ::_filelengthi64(file_) <= largestTextFile) return;
  ::_close(file_);
  file_ = -1;
}

TextReader::~TextReader() { closeFile(file_); }

bool TextReader::isOpen() const { return file_ != -1; }

bool TextReader::readAll(std::string& _text) {
  if (!isOpen()) return false;
  std::array<char, 16384> buffer;
  int got = -1;
  do {
    if (injectedFault(Call::read) != noError) return false;
    got = ::_read(file_, buffer.data(), static_cast<unsigned int>(buffer.size()));
    if (got > 0) _text.append(buffer.data(), static_cast<std::size_t>(got));
  } while (got > 0);
  return got == 0;
}

bool isTooLargeToRead(const std::string& _path) {
  struct _stat64 status {};
  return ::_stat64(_path.c_str(), &status) == 0 && status.st_size > largestTextFile;
}

TextWriter::TextWriter(const std::string& _path, Mode _mode) {
  if (injectedFault(Call::openForWriting) != noError) return;
  file_ = openFile(_path, _O_WRONLY | _O_CREAT | (_mode == Mode::truncate ? _O_TRUNC : _O_APPEND));
}

TextWriter::~TextWriter() { closeFile(file_); }

bool TextWriter::isOpen() const { return file_ != -1; }

bool TextWriter::write(const std::string& _text) {
  if (!isOpen()) return false;
  // The run-time appends by a seek and a write; between them nobody else may append.
  const AppendLock lock(handleOf(file_), nullptr);
  std::size_t done = 0;
  while (done < _text.size()) {
    if (injectedFault(Call::write) != noError) return false;
    const auto size = static_cast<unsigned int>(std::min(_text.size() - done, LARGEST_WRITE));
    const int written = ::_write(file_, _text.data() + done, size);
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace platform
