// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/logs/error_record.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

/// A file qmrk.info and its user.
struct RecordFile {
  std::string user;
  std::string path;  ///< in the system's form, as this program reaches it

  bool operator==(const RecordFile&) const = default;
};

/// The files to which a process of the viewpoint writes error records: in the log folder of "GE" (about set-ups), and
/// in that of each CA (about its class list). They need not exist.
/// @param _ca only this CA and "GE"; empty: every CA that has a .cfg file, and the default CA.
std::vector<RecordFile> recordFilesOf(const Viewpoint& _viewpoint, const std::string& _ca);

struct FoundRecord {
  ErrorRecord record;
  std::size_t file = 0;  ///< index of its file
  int line = 0;          ///< from 1
};

struct RecordSearch {
  std::vector<FoundRecord> records;  ///< sorted by time
  std::size_t leftOut = 0;           ///< older ones, beyond the limit
  std::vector<std::size_t> denied;   ///< indices of files that may not be read
};

/// Reads the records in files. A line without a stamp counts as an unknown record at the time of the line before.
/// @param _since only records from that time on.
/// @param _most at most that many, the latest ones.
RecordSearch readRecords(const std::vector<RecordFile>& _files, std::optional<CivilTime> _since, std::size_t _most);

}  // namespace qmrkctl
