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

/// Reads a log and its backups as one stream of lines, and follows the log while it grows and when its file is renamed,
/// removed, emptied or recreated. For one thread.
class LogReader {
 public:
  /// Opens nothing yet.
  /// @param _path with separators of either kind.
  explicit LogReader(std::string _path) : path_(std::move(_path)) {}

  const std::string& path() const { return path_; }

  /// Opens all files of the log and goes to the last _lines lines that the query selects, or a little before them.
  /// @return the result for the log's own file; if it is missing, there may still be backups.
  toolsystem::OpenResult begin(const MessageQuery& _query, std::uint64_t _lines);

  /// Whether any file of the log is open.
  bool isOpen() const { return !files_.empty(); }

  /// Takes the next complete line, without its line end. In a backup the last line is complete even without one.
  /// @return false if there is none now; the line is then untouched.
  bool next(std::string& _line);

  /// Takes what follows the last line end, if nothing was added during that many calls of refresh.
  /// @return false if there is nothing to take.
  bool takeFragment(std::string& _line, int _idleRefreshes);

  /// Looks for new, renamed and emptied files. Call it when next() returns false.
  void refresh();

 private:
  struct OpenFile {
    toolsystem::LogFile file;
    std::int64_t offset = 0;
    LineSplitter splitter;
    std::string lastBytes;  ///< before the offset; if they differ, the file was rewritten
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
  std::size_t reading_ = 0;                ///< index of the file being read
  std::deque<std::string> lines_;          ///< read but not taken yet
  std::vector<toolsystem::FileId> known_;  ///< files of the log at the last look
};

}  // namespace qmrkctl
