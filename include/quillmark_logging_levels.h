/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_LEVELS_H
#define QUILLMARK_LOGGING_LEVELS_H

/// @file
/// Switching log classes on and off, and attaching them to a file. Included by quillmark_logging.h, which says what
/// holds for all functions. These must not run at the same time as each other or as a set-up; other threads may log.

#include <string>

#include "quillmark_logging_export.h"

namespace Quillmark_logging {

/// Attaches a file to each class of COMMON_LOG_FILE_FILTER. initDefaultLogs does this with the common log file.
/// @param _logFile full path of the file, with either separator.
/// @param _ca      the CA whose filter is read. Its entries are ended by ";"; what follows the last ";" is dropped.
/// @return false, and nothing is changed, when the key is missing.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API bool setInitialLogLevels(std::string _logFile, const std::string& _ca);

/// Switches on exactly the classes of the `.init` file of the default CA (the environment variable DEFAULT_CA_NR, else
/// "GE"), and all others off. An empty list switches everything off.
///
/// The change takes effect all at once: a log that stays on loses no message.
///
/// @return false, and nothing is changed, when the configuration or the list cannot be read.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API bool updateLogLevels();

/// Switches on exactly the classes of the `.init` file of a named CA, and all others off.
/// @param _ca the CA.
/// @return false, and nothing is changed, when the configuration or the list cannot be read.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API bool updateLogLevels(const std::string& _ca);

/// Switches all logs on, until the next updateLogLevels.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API void enableAllLogs();

/// Switches the selected logs on, until the next updateLogLevels. The others stay as they are.
/// @param _logs one pattern, such as "Demo.App" (that log and those below it) or "*.error".
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API void enableSpecifiedLogs(std::string _logs);

/// Switches all logs off, until the next updateLogLevels.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API void disableAllLogs();

}  // namespace Quillmark_logging

#endif
