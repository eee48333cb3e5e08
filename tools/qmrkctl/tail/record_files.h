// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/logs/error_record.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

/// A file qmrk.info, and whose it is.
struct RecordFile {
  std::string user;
  std::string path;  ///< in the system's form, as this program reaches it

  bool operator==(const RecordFile&) const = default;
};

/// The files in which a process of the viewpoint leaves error records: in the log folder of "GE", where those of a
/// set-up are, and in that of each CA, where those of its class list are. They need not exist.
/// @param _ca only this one and "GE"; empty: every CA that has a .cfg file, and the default one.
std::vector<RecordFile> recordFilesOf(const Viewpoint& _viewpoint, const std::string& _ca);

struct FoundRecord {
  ErrorRecord record;
  std::size_t file = 0;  ///< index of its file
  int line = 0;          ///< from 1
};

struct RecordSearch {
  std::vector<FoundRecord> records;  ///< in the order of their times
  std::size_t leftOut = 0;           ///< older ones, for which there was no room
  std::vector<std::size_t> denied;   ///< indices of files that may not be read
};

/// Reads the records of files.
/// @param _since only later ones.
/// @param _most at most so many, the latest.
RecordSearch readRecords(const std::vector<RecordFile>& _files, std::optional<CivilTime> _since, std::size_t _most);

}  // namespace qmrkctl
