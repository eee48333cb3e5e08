// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/tail/record_files.h"

#include <algorithm>
#include <utility>

#include "tools/logs/log_reader.h"
#include "tools/qmrkctl/configuration.h"

namespace qmrkctl {
namespace {

void addFile(const Viewpoint& _viewpoint, const std::optional<LogPlaces>& _places, std::vector<RecordFile>& _files) {
  if (!_places) return;
  RecordFile file = {_viewpoint.account.name, reachedPath(_viewpoint, _places->errorRecords)};
  if (std::ranges::find(_files, file) == _files.end()) _files.push_back(std::move(file));
}

// A line without a stamp goes with the record before it.
void readFile(const RecordFile& _file, std::size_t _index, std::optional<CivilTime> _since, RecordSearch& _search) {
  LogReader reader(_file.path);
  if (reader.begin({}, BackwardScan::allLines) == toolsystem::OpenResult::denied) _search.denied.push_back(_index);
  CivilTime time = 0;
  int number = 0;
  for (std::string line; reader.next(line) || reader.takeFragment(line, 0);) {
    ++number;
    ErrorRecord record;
    record.time = time;
    record.text = line;
    if (auto parsed = parseErrorRecord(line)) record = std::move(*parsed);
    time = record.time;
    if (!line.empty() && (!_since || time >= *_since)) _search.records.push_back({std::move(record), _index, number});
  }
}

}  // namespace

std::vector<RecordFile> recordFilesOf(const Viewpoint& _viewpoint, const std::string& _ca) {
  std::vector<RecordFile> files;
  std::vector<std::string> cas{_ca};
  if (_ca.empty()) {
    for (const std::string& installed : installedCas(_viewpoint))
      cas.push_back(installed);
  }
  for (const std::string& ca : cas) {
    const Configuration configuration = readConfiguration(_viewpoint, ca);
    addFile(_viewpoint, configuration.genericLogs, files);
    addFile(_viewpoint, configuration.logs, files);
  }
  return files;
}

RecordSearch readRecords(const std::vector<RecordFile>& _files, std::optional<CivilTime> _since, std::size_t _most) {
  RecordSearch search;
  for (std::size_t i = 0; i < _files.size(); ++i) {
    readFile(_files[i], i, _since, search);
    std::ranges::stable_sort(search.records, {}, [](const FoundRecord& _found) { return _found.record.time; });
    if (search.records.size() <= _most) continue;
    const std::size_t surplus = search.records.size() - _most;
    search.leftOut += surplus;
    search.records.erase(search.records.begin(), search.records.begin() + static_cast<std::ptrdiff_t>(surplus));
  }
  return search;
}

}  // namespace qmrkctl
