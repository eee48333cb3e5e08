/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_NAMES_H
#define QUILLMARK_LOGGING_NAMES_H

/// @file
/// The texts that the library and its applications share: names of files and folders, configuration keys, defaults, and
/// the names under which callables are connected in the log manager. All are 8-bit texts; paths have backslashes on
/// every platform. They are compile-time constants, so code that runs while libraries are loaded may use them.

namespace Quillmark_logging {

// ---- Configuration files ----

/// The configuration of a CA.
constexpr char CFG_FILE_NAME[] = "qmrk_logging_XXX.cfg";
/// The class list of a CA: the log classes that are on.
constexpr char INIT_FILE_NAME[] = "qmrk_logging_XXX.init";
/// Stands for the customer adaptation (CA) in the names above.
constexpr char CA_PLACEHOLDER[] = "XXX";
/// Folder of the `.cfg` files, below the machine-wide folder of shared program files.
constexpr char CFG_FOLDER[] = "\\Orvane Shared\\qmrk\\logging\\cfg\\";
/// Folder of the `.init` files, below the machine-wide folder of application data.
constexpr char INIT_FOLDER[] = "\\Orvane\\qmrk\\logging\\";
/// The generic configuration.
constexpr char GENERIC_CFG_FILE_NAME[] = "qmrk_logging_GE.cfg";

// ---- Files below the log folder ----

/// Records of what was wrong with the configuration.
constexpr char ERROR_INFO_FILE_NAME[] = "\\qmrk.info";
/// End of the name of an application's own log file.
constexpr char APPL_SPEC_LOG_FILE_SUFFIX[] = "_log.txt";

// ---- Reserved: kept for applications, read by no operation of the library ----

/// A file name.
constexpr char RESERVED_INIT_FILE_NAME[] = "\\qmrk.init";
/// A folder.
constexpr char RESERVED_LOG_FOLDER[] = "\\Quillmark\\Logging";
/// A path of the Windows registry.
constexpr char RESERVED_REGISTRY_PATH[] = "Software\\Orvane\\Fenlow Suite\\Quillmark\\Logging";
/// A key.
constexpr char REG_PATH[] = "REG_PATH";

// ---- Keys of a `.cfg` file; a boolean is on when its value is "TRUE" in any letter case ----

/// The CA that the file belongs to. For people: not read.
constexpr char CA_NR[] = "CA_NR";
/// In the generic file: the CA that is installed, whose files answer requests for "GE".
constexpr char REDIRECT_CA_NR[] = "REDIRECT_CA_NR";
/// File name of the common log. Required by initDefaultLogs.
constexpr char COMMON_LOG_FILE_NAME[] = "COMMON_LOG_FILE_NAME";
/// Folder of the common log, below the user's application data.
constexpr char COMMON_LOG_FILE_ROOT[] = "COMMON_LOG_FILE_ROOT";
/// Class list: what writes to the common log. Each entry is ended by ";".
constexpr char COMMON_LOG_FILE_FILTER[] = "COMMON_LOG_FILE_FILTER";
/// Boolean: applications log at all. Required by initDefaultLogs.
constexpr char LOG_STATE[] = "LOG_STATE";
/// Boolean: time stamps have milliseconds.
constexpr char MILLISECOND_RESOLUTION[] = "MILLISECOND_RESOLUTION";
/// Boolean, read for "GE" when the library is loaded: files are written by threads of their own.
constexpr char TS_APPENDERS[] = "TS_APPENDERS";
/// Boolean, read for "GE" when the library is loaded: the library traces its steps to the console.
constexpr char QMRK_TRACE[] = "QMRK_TRACE";
/// Size in bytes at which an application's own log file is full; 1 means no limit.
constexpr char SPEC_LOG_FILE_LIMIT[] = "SPEC_LOG_FILE_LIMIT";
/// Number of files of a rotated log, including the current one.
constexpr char SPEC_NR_OF_LOG_FILES[] = "SPEC_NR_OF_LOG_FILES";
/// Boolean: applications' own log files are limited in size and rotated.
constexpr char SPEC_LOG_ROTATION[] = "SPEC_LOG_ROTATION";

// ---- The default CA ----

/// The generic CA, which is the default one unless the environment variable below names another.
constexpr char GENERIC_CA[] = "GE";
/// Environment variable: the default CA.
constexpr char DEFAULT_CA_NR[] = "DEFAULT_CA_NR";

// ---- Defaults of missing keys ----

/// For COMMON_LOG_FILE_ROOT.
constexpr char DEFAULT_COMMON_LOG_FILE_ROOT[] = "Orvane\\Quillmark\\Logging";
/// For SPEC_LOG_FILE_LIMIT.
constexpr char DEFAULT_SPEC_LOG_FILE_LIMIT[] = "1024000";
/// For SPEC_NR_OF_LOG_FILES.
constexpr char DEFAULT_SPEC_NR_OF_LOG_FILES[] = "5";

// ---- Names of what the library connects in the log manager ----

/// The console, attached to every log.
constexpr char QMRK_APPENDERS[] = "QMRK_APPENDERS";
/// Time stamp, prefix and line end of every log.
constexpr char QMRK_MODIFIERS[] = "QMRK_MODIFIERS";
/// The common log file.
constexpr char APPENDER_WRITE2FILE_INIT[] = "APPENDER_WRITE2FILE_INIT";
/// An application's own log file, rotated.
constexpr char APPENDER_COUT_ROLLING_APPL_SPEC[] = "APPENDER_COUT_ROLLING_APPL_SPEC";
/// An application's own log file, not rotated.
constexpr char APPENDER_COUT_APPL_SPEC[] = "APPENDER_COUT_APPL_SPEC";

/// The named event on which a listener waits unless it is given another name.
constexpr char QMRK_LOG_EVENT[] = "QMRK_LOG_EVENT";

}  // namespace Quillmark_logging

#endif
