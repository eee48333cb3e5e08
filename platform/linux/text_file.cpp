// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/fault.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/file_write.h"
#include "platform/linux/open_file.h"
#include "platform/native_path.h"

namespace platform {
namespace {

constexpr std::size_t largestRead = 65536;

void closeFile(int _file) {
  if (_file != -1 && injectedFault(Call::closeFile) == noError) closeDescriptor(_file);
}

std::int64_t sizeOf(int _file) {
  struct stat status {};
  return ::fstat(_file, &status) == 0 ? static_cast<std::int64_t>(status.st_size) : 0;
}

int flagsOf(TextWriter::Mode _mode) {
  if (_mode == TextWriter::Mode::append) return O_APPEND;
  return _mode == TextWriter::Mode::create ? O_EXCL : O_TRUNC;
}

// Turns each CR LF of the text, from a position on, into LF.
void dropCarriageReturns(std::string& _text, std::size_t _begin) {
  std::size_t to = _text.find('\r', _begin);
  if (to == std::string::npos) return;
  for (std::size_t from = to; from < _text.size(); ++from) {
    const bool endsLine = _text[from] == '\r' && from + 1 < _text.size() && _text[from + 1] == '\n';
    if (!endsLine) _text[to++] = _text[from];
  }
  _text.resize(to);
}

}  // namespace

TextReader::TextReader(const std::string& _path) {
  if (injectedFault(Call::openForReading) != noError) return;
  file_ = openFile(_path, O_RDONLY);
  if (file_ == -1 || sizeOf(file_) <= largestTextFile) return;
  closeDescriptor(file_);
  file_ = -1;
}

TextReader::~TextReader() { closeFile(file_); }

bool TextReader::isOpen() const { return file_ != -1; }

bool TextReader::readAll(std::string& _text) {
  if (!isOpen()) return false;
  const std::size_t begin = _text.size();
  std::size_t end = begin;
  _text.reserve(begin + static_cast<std::size_t>(sizeOf(file_)) + largestRead);
  ssize_t got = -1;
  do {
    if (injectedFault(Call::read) != noError) break;
    _text.resize(end + largestRead);
    got = ::read(file_, &_text[end], largestRead);
    if (got > 0) end += static_cast<std::size_t>(got);
    // It may have grown since it was opened.
    if (end - begin > static_cast<std::size_t>(largestTextFile)) break;
  } while (got > 0 || (got == -1 && errno == EINTR));
  _text.resize(end);
  dropCarriageReturns(_text, begin);
  return got == 0;
}

bool TextReader::readAll(TextPieces& _text) {
  if (!isOpen()) return false;
  const std::size_t begin = _text.size();
  std::size_t size = 0;
  ssize_t got = -1;
  do {
    if (injectedFault(Call::read) != noError) return false;
    std::string piece(largestRead, '\0');
    got = ::read(file_, piece.data(), largestRead);
    if (got <= 0) continue;
    size += static_cast<std::size_t>(got);
    if (size > static_cast<std::size_t>(largestTextFile)) return false;
    piece.resize(static_cast<std::size_t>(got));
    // Some file systems give little at a time, and not only at the end.
    if (_text.size() > begin && _text.back().size() < largestRead / 2) _text.back().shrink_to_fit();
    // A CR LF between two reads: the piece that the CR ends is not left empty, but takes the LF.
    if (piece.front() == '\n' && _text.size() > begin && _text.back().back() == '\r') {
      _text.back().back() = '\n';
      piece.erase(0, 1);
    }
    dropCarriageReturns(piece, 0);
    if (!piece.empty()) _text.push_back(std::move(piece));
  } while (got > 0 || (got == -1 && errno == EINTR));
  return got == 0;
}

bool endsInsideLine(const std::string& _path) {
  const FileDescriptor file(openFile(_path, O_RDONLY, FileRole::log));
  const std::int64_t size = file.isOpen() ? sizeOf(file.get()) : 0;
  char last = '\n';
  return size > 0 && ::pread(file.get(), &last, 1, static_cast<off_t>(size - 1)) == 1 && last != '\n';
}

bool isTooLargeToRead(const std::string& _path) {
  struct stat status {};
  return ::stat(nativePath(_path).c_str(), &status) == 0 && status.st_size > largestTextFile;
}

TextWriter::TextWriter(const std::string& _path, Mode _mode) {
  if (injectedFault(Call::openForWriting) != noError) return;
  file_ = openFile(_path, O_WRONLY | O_CREAT | flagsOf(_mode),
                   _mode == Mode::append ? FileRole::log : FileRole::configuration);
  if (isOpen()) refreshFileSizeLimit();
}

TextWriter::~TextWriter() { closeFile(file_); }

bool TextWriter::isOpen() const { return file_ != -1; }

bool TextWriter::write(const std::string& _text) {
  if (!isOpen()) return false;
  std::size_t done = 0;
  while (done < _text.size()) {
    if (injectedFault(Call::write) != noError) return false;
    const ssize_t written = writeToFile(file_, _text.data() + done, _text.size() - done);
    if (written == -1) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace platform
