// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tools/logs/civil_time.h"

namespace qmrkctl {

/// What a record in a file qmrk.info is about.
enum class RecordKind {
  missingConfiguration,     ///< the .cfg of the CA is missing
  unreadableConfiguration,  ///< it exists but may not be read
  noConfiguration,          ///< anything else about the configuration
  unreadableClassList,      ///< the .init cannot be opened or read
  noClassListPath,          ///< no path of an .init is known
  unwritableClassList,      ///< the .init cannot be written
  unknown,                  ///< not written by the library
};

/// One parsed line of a file qmrk.info.
struct ErrorRecord {
  CivilTime time = 0;  ///< local time of the process that wrote it
  RecordKind kind = RecordKind::unknown;
  std::string ca;      ///< as the application gave it; empty if the record names none
  std::string caller;  ///< the name given to initDefaultLogs; "<Internal>" for an empty one; empty: not recorded
  std::string file;    ///< the file that the record names; empty if none
  std::string text;    ///< of the record, without its stamp
};

/// Parses a line.
/// @param _line without its line end.
/// @return no value if it does not begin with a time stamp, and so is no record.
std::optional<ErrorRecord> parseErrorRecord(std::string_view _line);

/// The kind in words: "missing configuration".
std::string_view recordKindName(RecordKind _kind);

/// What the record means and what to do, in a sentence each.
std::string explanationOf(const ErrorRecord& _record);

}  // namespace qmrkctl
