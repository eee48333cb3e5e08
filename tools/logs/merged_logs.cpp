// SPDX-License-Identifier: MIT
#include "tools/logs/merged_logs.h"

#include <utility>

namespace qmrkctl {

MergedLogs::MergedLogs(const std::vector<std::string>& _paths, MessageQuery _query) : query_(std::move(_query)) {
  for (const std::string& path : _paths)
    sources_.push_back({LogReader(path), MessageFilter(query_), {}});
}

std::vector<toolsystem::OpenResult> MergedLogs::begin(std::uint64_t _lines) {
  std::vector<toolsystem::OpenResult> results;
  results.reserve(sources_.size());
  for (Source& source : sources_) {
    const toolsystem::OpenResult result = source.reader.begin(query_, _lines);
    const bool hasBackupsOnly = result == toolsystem::OpenResult::missing && source.reader.isOpen();
    results.push_back(hasBackupsOnly ? toolsystem::OpenResult::opened : result);
  }
  return results;
}

bool MergedLogs::isAccepted(Source& _source, std::size_t _log, std::string& _text, MergedLine& _line) {
  if (!_source.filter.accepts(_text)) return false;
  _line = {_log, std::move(_text), _source.filter.logClass(), _source.filter.time()};
  return true;
}

void MergedLogs::readAhead(std::size_t _log) {
  Source& source = sources_[_log];
  MergedLine line;
  for (std::string text; !source.line && source.reader.next(text);) {
    if (isAccepted(source, _log, text, line)) source.line = std::move(line);
  }
}

bool MergedLogs::next(MergedLine& _line) {
  Source* earliest = nullptr;
  for (std::size_t log = 0; log < sources_.size(); ++log) {
    readAhead(log);
    Source& source = sources_[log];
    if (source.line && (earliest == nullptr || source.line->time < earliest->line->time)) earliest = &source;
  }
  if (earliest == nullptr) return false;
  _line = std::move(*earliest->line);
  earliest->line.reset();
  return true;
}

bool MergedLogs::takeFragment(MergedLine& _line, int _idleRefreshes) {
  for (std::size_t log = 0; log < sources_.size(); ++log) {
    std::string text;
    if (sources_[log].reader.takeFragment(text, _idleRefreshes) && isAccepted(sources_[log], log, text, _line))
      return true;
  }
  return false;
}

void MergedLogs::refresh() {
  for (Source& source : sources_)
    source.reader.refresh();
}

}  // namespace qmrkctl
