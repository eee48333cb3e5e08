/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_VERSION_H
#define QUILLMARK_LOGGING_VERSION_H

/// @file
/// The version of the headers, for the preprocessor, and the versions of the files that are installed. Included by
/// quillmark_logging.h, which says what holds for all functions.

#include <string>

#include "quillmark_logging_export.h"

/// First number of the version. Programs need recompiling when it changes.
#define QMRK_LOG_VERSION_MAJOR 1
/// Second number of the version. It grows when functions are added.
#define QMRK_LOG_VERSION_MINOR 0
/// Third number of the version. It grows when faults are corrected.
#define QMRK_LOG_VERSION_PATCH 0
/// Fourth number of the version: the build.
#define QMRK_LOG_VERSION_TWEAK 0

/// The first three numbers as one: `#if QMRK_LOG_VERSION >= 1002003` asks for 1.2.3 or later.
#define QMRK_LOG_VERSION (QMRK_LOG_VERSION_MAJOR * 1000000 + QMRK_LOG_VERSION_MINOR * 1000 + QMRK_LOG_VERSION_PATCH)

/// All four numbers as text. The build takes the version of the libraries and of the package from here.
#define QMRK_LOG_VERSION_STRING "1.0.0.0"

namespace Quillmark_logging {

/// Reads the file version of the library that is installed, which can be another one than that of these headers.
/// @return four decimal numbers joined by points ("2.1.0.7"), or "N/A" when it cannot be read.
QMRK_LOG_API std::string getQuillmarkLoggingVersion();

/// Reads the file version of the program LogTest.
/// @return four decimal numbers joined by points, or "N/A" when it cannot be read.
QMRK_LOG_API std::string getLogTestVersion();

/// Writes both versions to std::cout, or nothing at all unless both can be read. Leaves blank fill and left adjustment
/// set on the stream.
QMRK_LOG_API void printVersionInfo();

}  // namespace Quillmark_logging

#endif
