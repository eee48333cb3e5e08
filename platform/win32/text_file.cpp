// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <array>

#include "platform/fault.h"
#include "platform/win32/append_lock.h"
#include "platform/win32/run_time_file.h"

// The files are those of the C run-time in text mode, which translates the line ends.

namespace platform {
namespace {

int flagsOf(TextWriter::Mode _mode) {
  if (_mode == TextWriter::Mode::append) return _O_APPEND;
  return _mode == TextWriter::Mode::create ? _O_EXCL : _O_TRUNC;
}

/// Calls _take(block, size) for each block of the file.
template <typename Take>
bool readBlocks(int _file, Take _take) {
  std::array<char, 16384> buffer;
  std::int64_t size = 0;
  int got = -1;
  do {
    if (injectedFault(Call::read) != noError) return false;
    got = ::_read(_file, buffer.data(), static_cast<unsigned int>(buffer.size()));
    if (got > 0) _take(buffer.data(), static_cast<std::size_t>(got));
    // It may have grown since it was opened.
    size += got;
    if (size > largestTextFile) return false;
  } while (got > 0);
  return got == 0;
}

}  // namespace

TextReader::TextReader(const std::string& _path) {
  if (injectedFault(Call::openForReading) == noError) file_ = openRunTimeFile(_path, _O_RDONLY);
  if (file_ == -1 || ::_filelengthi64(file_) <= largestTextFile) return;
  ::_close(file_);
  file_ = -1;
}

TextReader::~TextReader() { closeRunTimeFile(file_); }

bool TextReader::isOpen() const { return file_ != -1; }

bool TextReader::readAll(std::string& _text) {
  return isOpen() && readBlocks(file_, [&](const char* _block, std::size_t _size) { _text.append(_block, _size); });
}

bool TextReader::readAll(TextPieces& _text) {
  return isOpen() &&
         readBlocks(file_, [&](const char* _block, std::size_t _size) { _text.emplace_back(_block, _size); });
}

bool endsInsideLine(const std::string& _path) {
  const int file = openRunTimeFile(_path, _O_RDONLY);
  char last = '\n';
  const bool isRead = file != -1 && ::_lseeki64(file, -1, SEEK_END) != -1 && ::_read(file, &last, 1) == 1;
  closeRunTimeFile(file);
  return isRead && last != '\n';
}

bool isTooLargeToRead(const std::string& _path) {
  struct _stat64 status {};
  return ::_stat64(_path.c_str(), &status) == 0 && status.st_size > largestTextFile;
}

TextWriter::TextWriter(const std::string& _path, Mode _mode) {
  if (injectedFault(Call::openForWriting) != noError) return;
  file_ = openRunTimeFile(_path, _O_WRONLY | _O_CREAT | flagsOf(_mode));
}

TextWriter::~TextWriter() { closeRunTimeFile(file_); }

bool TextWriter::isOpen() const { return file_ != -1; }

bool TextWriter::write(const std::string& _text) {
  if (!isOpen()) return false;
  // The run-time appends by a seek and a write; between them nobody else may append.
  const AppendLock lock(handleOfRunTimeFile(file_), nullptr);
  return writeToRunTimeFile(file_, _text.data(), _text.size());
}

}  // namespace platform
