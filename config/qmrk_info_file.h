// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/clock.h"

namespace Quillmark_logging {

// The records of the error-information file qmrk.info: one line each, stamped with the local time.

/// "2007/01/05 09:03:07 ": the year in plain decimal, every other number in two digits, a blank at the end.
std::string recordStamp(const platform::LocalTime& _time);

enum class RecordResult { written, notOpened, notWritten };

/// Appends a record, stamped with the current time, to a file. Creates the file if it is missing; its folder must
/// exist. Ends a record first that was written in part only.
/// @param _text the record without stamp and line end.
RecordResult appendRecord(const std::string& _file, const std::string& _text);

}  // namespace Quillmark_logging
