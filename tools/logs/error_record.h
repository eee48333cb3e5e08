// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tools/logs/civil_time.h"

namespace qmrkctl {

/// What a record of a file qmrk.info is about.
enum class RecordKind {
  missingConfiguration,     ///< the .cfg of the CA is not there
  unreadableConfiguration,  ///< it is there and may not be read
  noConfiguration,          ///< anything else about the configuration
  unreadableClassList,      ///< the .init cannot be opened or may not be read
  noClassListPath,          ///< there is no path of an .init
  unwritableClassList,      ///< the .init cannot be written
  unknown,                  ///< no record that the library writes
};

/// One line of a file qmrk.info, taken apart.
struct ErrorRecord {
  CivilTime time = 0;  ///< local time of the process that wrote it
  RecordKind kind = RecordKind::unknown;
  std::string ca;      ///< as the application gave it; empty when the record names none
  std::string caller;  ///< the name given to initDefaultLogs; "<Internal>" for an empty one; empty: not recorded
  std::string file;    ///< the file that the record names; empty for none
  std::string text;    ///< of the record, without its stamp
};

/// @param _line without its line end.
/// @return nothing when it does not begin with a stamp: then it is no record.
std::optional<ErrorRecord> parseErrorRecord(std::string_view _line);

/// "missing configuration": the kind in words.
std::string_view recordKindName(RecordKind _kind);

/// What the record means, and what to do, in a sentence each.
std::string explanationOf(const ErrorRecord& _record);

}  // namespace qmrkctl
