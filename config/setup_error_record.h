// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Kinds of records of writeQmrkErrorInfo; any other number is an unspecified error.
constexpr int invalidConfiguration = 1;
constexpr int faultyPermissions = 2;
constexpr int unspecifiedError = 3;

/// The text of a record, without the time stamp and the line end.
/// @param _caller if empty, the record says "<Internal>".
std::string errorInfoText(int _error, const std::string& _ca, const std::string& _caller, const std::string& _msg);

/// Appends one line, stamped with the local time, to qmrk.info in the common log folder of "GE". Creates that folder if
/// it is missing.
/// @return whether the record was written.
bool writeQmrkErrorInfo(int _error, const std::string& _ca, const std::string& _caller, const std::string& _msg);

}  // namespace Quillmark_logging
