/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_STAMPS_H
#define QUILLMARK_LOGGING_STAMPS_H

/// @file
/// Stamps for log lines: process, thread, source location. Included by quillmark_logging.h, which says what holds for
/// all functions.

#include <string>

#include "quillmark_logging_export.h"

namespace Quillmark_logging {

/// Gives the id of the process as text.
/// @param _formatted whether the digits stand in brackets, followed by a blank: "[4711] ".
/// @return the decimal digits, in brackets or not; "-1" in their place if the id cannot be turned into text.
QMRK_LOG_API std::string getProcessId(bool _formatted);

/// Gives the id of the process in brackets.
/// @return getProcessId(true).
QMRK_LOG_API std::string getFormattedProcessId();

/// Gives the id of the calling thread as text.
/// @param _formatted whether the digits stand in brackets, followed by a blank: "[4712] ".
/// @return the decimal digits, in brackets or not; "-1" in their place if the id cannot be turned into text.
QMRK_LOG_API std::string getThreadId(bool _formatted);

/// Gives the id of the calling thread in brackets.
/// @return getThreadId(true).
QMRK_LOG_API std::string getFormattedThreadId();

/// Gives a source location as text. Made for `location(__FILE__, __LINE__, __func__)`.
/// @param _file     the file, not null. Only what is behind the last backslash is shown; slashes do not count.
/// @param _line     the line, counted from 1.
/// @param _function the function, not null.
/// @return "[function file:line] ", with the blank; "LOC-ERROR" if it cannot be turned into text.
QMRK_LOG_API std::string location(const char* _file, int _line, const char* _function);

}  // namespace Quillmark_logging

#endif
