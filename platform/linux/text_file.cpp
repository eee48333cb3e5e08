// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "platform/fault.h"
#include "platform/linux/file_write.h"
#include "platform/linux/open_file.h"

namespace platform {
namespace {

void closeFile(int _file) {
  if (_file != -1 && injectedFault(Call::closeFile) == noError) ::close(_file);
}

void appendWithLineFeeds(std::string& _text, std::string_view _raw) {
  for (std::size_t i = 0; i < _raw.size(); ++i) {
    const bool endsLine = _raw[i] == '\r' && i + 1 < _raw.size() && _raw[i + 1] == '\n';
    if (!endsLine) _text += _raw[i];
  }
}

}  // namespace

TextReader::TextReader(const std::string& _path) {
  if (injectedFault(Call::openForReading) != noError) return;
  file_ = openFile(_path, O_RDONLY);
}

TextReader::~TextReader() { closeFile(file_); }

bool TextReader::isOpen() const { return file_ != -1; }

bool TextReader::readAll(std::string& _text) {
  if (!isOpen()) return false;
  std::string raw;
  std::array<char, 16384> buffer;
  ssize_t got = -1;
  do {
    if (injectedFault(Call::read) != noError) break;
    got = ::read(file_, buffer.data(), buffer.size());
    if (got > 0) raw.append(buffer.data(), static_cast<std::size_t>(got));
  } while (got > 0 || (got == -1 && errno == EINTR));
  appendWithLineFeeds(_text, raw);
  return got == 0;
}

TextWriter::TextWriter(const std::string& _path, Mode _mode) {
  if (injectedFault(Call::openForWriting) != noError) return;
  file_ = _mode == Mode::truncate ? openFile(_path, O_WRONLY | O_CREAT | O_TRUNC, FileRole::configuration)
                                  : openFile(_path, O_WRONLY | O_CREAT | O_APPEND, FileRole::log);
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
