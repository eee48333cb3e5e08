// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "tools/logs/backward_scan.h"
#include "tools/logs/line_splitter.h"
#include "tools/system/log_file.h"

namespace qmrkctl {

/// Reads a log with its backups as one stream of lines, and follows it: while it grows, and when its file is renamed,
/// removed, emptied or created again. For one thread.
class LogReader {
 public:
  /// Opens nothing yet.
  /// @param _path with separators of either kind.
  explicit LogReader(std::string _path) : path_(std::move(_path)) {}

  const std::string& path() const { return path_; }

  /// Opens all files of the log, and begins where the last lines do.
  /// @return what became of the log's own file; when that is missing, there may still be backups.
  toolsystem::OpenResult begin(const MessageQuery& _query, std::uint64_t _lines);

  /// Whether any file of the log is open.
  bool isOpen() const { return !files_.empty(); }

  /// Takes the next whole line. At the end of a file that is not the newest, a line is whole without a line end.
  /// @return false when there is none now.
  bool next(std::string& _line);

  /// Takes what follows the last line end, if nothing was added to it during that many calls of refresh.
  bool takeFragment(std::string& _line, int _idleRefreshes);

  /// Finds out what became of the log. Call it when next() has nothing more.
  void refresh();

 private:
  struct OpenFile {
    toolsystem::LogFile file;
    std::int64_t offset = 0;
    LineSplitter splitter;
    std::string lastBytes;  ///< before the offset; different ones mean that the file was rewritten
    int idle = 0;           ///< calls of refresh since it grew
  };

  toolsystem::OpenResult openAll();
  bool readMore(OpenFile& _file);
  void open(const std::string& _path);
  void openNewFiles();
  void restartIfEmptied(OpenFile& _file);
  void forgetOldFiles();

  std::string path_;
  std::deque<OpenFile> files_;             ///< oldest first
  std::size_t reading_ = 0;                ///< index of the file that is read
  std::deque<std::string> lines_;          ///< read and not taken yet
  std::vector<toolsystem::FileId> known_;  ///< files of the log when it was last looked at
};

}  // namespace qmrkctl
