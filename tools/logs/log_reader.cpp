// SPDX-License-Identifier: MIT
#include "tools/logs/log_reader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "tools/logs/log_files.h"

namespace qmrkctl {
namespace {

using toolsystem::FileId;
using toolsystem::OpenResult;

constexpr std::size_t pieceSize = std::size_t{64} * 1024;
constexpr std::size_t lastBytesSize = 64;
// A process notices within a second that its log was renamed, and writes into the old file until then.
constexpr int refreshesOfOldFile = 20;

std::vector<FileId> idsOf(const std::vector<std::string>& _paths) {
  std::vector<FileId> ids;
  ids.reserve(_paths.size());
  for (const std::string& path : _paths)
    ids.push_back(toolsystem::fileIdAt(path));
  return ids;
}

}  // namespace

OpenResult LogReader::begin(const MessageQuery& _query, std::uint64_t _lines) {
  OpenResult result = openAll();
  // A roll between two openings makes a gap.
  constexpr int mostAttempts = 5;
  for (int attempt = 1; attempt < mostAttempts && idsOf(filesOfLog(path_)) != known_; ++attempt)
    result = openAll();
  // The folder may be closed to us and the file not.
  if (files_.empty()) {
    OpenFile file;
    result = file.file.open(path_);
    if (result == OpenResult::opened) files_.push_back(std::move(file));
  }
  BackwardScan scan(_query, _lines);
  for (auto file = files_.rbegin(); file != files_.rend(); ++file)
    file->offset = scan.scan(file->file);
  return result;
}

OpenResult LogReader::openAll() {
  OpenResult result = OpenResult::missing;
  files_.clear();
  const std::vector<std::string> paths = filesOfLog(path_);
  known_ = idsOf(paths);
  for (const std::string& path : paths) {
    OpenFile file;
    const OpenResult opened = file.file.open(path);
    if (path == path_) result = opened;
    if (opened == OpenResult::opened) files_.push_back(std::move(file));
  }
  return result;
}

bool LogReader::readMore(OpenFile& _file) {
  std::array<char, pieceSize> block;
  const std::size_t size = _file.file.readAt(_file.offset, block.data(), block.size());
  if (size == 0) return false;
  const std::string_view bytes(block.data(), size);
  _file.splitter.feed(bytes, [this](std::string _line) { lines_.push_back(std::move(_line)); });
  _file.offset += static_cast<std::int64_t>(size);
  _file.idle = 0;
  _file.lastBytes += bytes.substr(size - std::min(size, lastBytesSize));
  _file.lastBytes.erase(0, _file.lastBytes.size() - std::min(_file.lastBytes.size(), lastBytesSize));
  return true;
}

bool LogReader::next(std::string& _line) {
  while (lines_.empty() && reading_ < files_.size()) {
    OpenFile& file = files_[reading_];
    if (readMore(file)) continue;
    const bool isNewest = reading_ + 1 == files_.size();
    if (!isNewest && file.splitter.hasFragment()) lines_.push_back(file.splitter.takeLine());
    ++reading_;
  }
  if (lines_.empty()) return false;
  _line = std::move(lines_.front());
  lines_.pop_front();
  return true;
}

bool LogReader::takeFragment(std::string& _line, int _idleRefreshes) {
  if (files_.empty() || !files_.back().splitter.hasFragment() || files_.back().idle < _idleRefreshes) return false;
  _line = files_.back().splitter.takeLine();
  return true;
}

void LogReader::refresh() {
  for (OpenFile& file : files_)
    ++file.idle;
  const FileId id = toolsystem::fileIdAt(path_);
  if (id != FileId() && (files_.empty() || files_.back().file.id() != id)) openNewFiles();
  if (!files_.empty()) restartIfEmptied(files_.back());
  forgetOldFiles();
  reading_ = 0;
}

void LogReader::openNewFiles() {
  const std::vector<std::string> paths = filesOfLog(path_);
  std::vector<FileId> ids = idsOf(paths);
  const FileId own = files_.empty() ? FileId() : files_.back().file.id();
  const auto place = std::ranges::find(ids, own);
  std::size_t first = 0;
  if (place != ids.end()) {
    // Renamed: the files behind it are newer. It may have to be opened under its new name.
    first = static_cast<std::size_t>(place - ids.begin()) + 1;
    files_.back().file.open(paths[first - 1]);
  }
  for (std::size_t i = first; i < paths.size(); ++i) {
    const bool isKnown = std::ranges::find(known_, ids[i]) != known_.end();
    if (place != ids.end() || !isKnown || paths[i] == path_) open(paths[i]);
  }
  known_ = std::move(ids);
}

void LogReader::open(const std::string& _path) {
  OpenFile file;
  if (file.file.open(_path) == OpenResult::opened) files_.push_back(std::move(file));
}

void LogReader::restartIfEmptied(OpenFile& _file) {
  const std::int64_t size = _file.file.size();
  if (size < 0) return;
  std::string bytes(_file.lastBytes.size(), '\0');
  const std::int64_t begin = _file.offset - static_cast<std::int64_t>(bytes.size());
  bytes.resize(_file.file.readAt(begin, bytes.data(), bytes.size()));
  const bool isSame = bytes.size() < _file.lastBytes.size() || bytes == _file.lastBytes;
  if (size >= _file.offset && isSame) return;
  if (_file.splitter.hasFragment()) lines_.push_back(_file.splitter.takeLine());
  _file.offset = 0;
  _file.lastBytes.clear();
}

void LogReader::forgetOldFiles() {
  while (files_.size() > 1 && files_.front().idle > refreshesOfOldFile)
    files_.pop_front();
}

}  // namespace qmrkctl
