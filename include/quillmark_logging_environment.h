/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_ENVIRONMENT_H
#define QUILLMARK_LOGGING_ENVIRONMENT_H

/// @file
/// The environment that the library sees: variables, its own trace, paths. Included by quillmark_logging.h, which says
/// what holds for all functions.

#include <string>

#include "quillmark_logging_export.h"

namespace Quillmark_logging {

/// Reads an environment variable, as GetEnvironmentVariableA does with a buffer of 256 bytes.
/// @param _name       the name of the variable.
/// @param[out] _value the value, or "" when it has 256 characters or more; untouched when the result is false.
/// @return whether the variable is set and not empty.
QMRK_LOG_API bool getEnvironmentVariable(const std::string& _name, std::string& _value);

/// Tells whether the library traces its steps to the console.
/// @return whether QMRK_TRACE of "GE" was on when the library was loaded. Never changes afterwards.
QMRK_LOG_API bool isTraceEnabled();

/// Translates a path of this library into a path of the system.
/// @param _path a path with backslashes.
/// @return on Linux the path with every backslash as a slash, on Windows the path itself.
QMRK_LOG_API std::string nativePath(const std::string& _path);

}  // namespace Quillmark_logging

#endif
