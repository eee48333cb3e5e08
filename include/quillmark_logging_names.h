/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_NAMES_H
#define QUILLMARK_LOGGING_NAMES_H

/* The texts that the library and its applications share: file and folder names, configuration keys, defaults, and the
 * names under which callables are connected in the log manager. All of them are plain 8-bit texts; paths have
 * backslashes on every platform. They are constants of the compiler: code that runs while libraries are loaded may use
 * them. */

namespace Quillmark_logging {

/* Configuration files. CA_PLACEHOLDER in a name is replaced by the customer adaptation (CA). */
constexpr char CFG_FILE_NAME[] = "qmrk_logging_XXX.cfg";
constexpr char INIT_FILE_NAME[] = "qmrk_logging_XXX.init";
constexpr char CA_PLACEHOLDER[] = "XXX";
/* Below the machine-wide folder of shared program files. */
constexpr char CFG_FOLDER[] = "\\Orvane Shared\\qmrk\\logging\\cfg\\";
/* Below the machine-wide folder of application data. */
constexpr char INIT_FOLDER[] = "\\Orvane\\qmrk\\logging\\";
constexpr char GENERIC_CFG_FILE_NAME[] = "qmrk_logging_GE.cfg";

/* Files below the log folder. */
constexpr char ERROR_INFO_FILE_NAME[] = "\\qmrk.info";
constexpr char APPL_SPEC_LOG_FILE_SUFFIX[] = "_log.txt";

/* Reserved: kept for applications, read by no operation of the library. */
constexpr char RESERVED_INIT_FILE_NAME[] = "\\qmrk.init";
constexpr char RESERVED_LOG_FOLDER[] = "\\Quillmark\\Logging";
constexpr char RESERVED_REGISTRY_PATH[] = "Software\\Orvane\\Fenlow Suite\\Quillmark\\Logging";
constexpr char REG_PATH[] = "REG_PATH";

/* Keys of a configuration file. A boolean key is on when its value is "TRUE" in any letter case. */
constexpr char CA_NR[] = "CA_NR";
constexpr char REDIRECT_CA_NR[] = "REDIRECT_CA_NR";
constexpr char COMMON_LOG_FILE_NAME[] = "COMMON_LOG_FILE_NAME";
constexpr char COMMON_LOG_FILE_ROOT[] = "COMMON_LOG_FILE_ROOT";
constexpr char COMMON_LOG_FILE_FILTER[] = "COMMON_LOG_FILE_FILTER";
constexpr char LOG_STATE[] = "LOG_STATE";
constexpr char MILLISECOND_RESOLUTION[] = "MILLISECOND_RESOLUTION";
constexpr char TS_APPENDERS[] = "TS_APPENDERS";
constexpr char QMRK_TRACE[] = "QMRK_TRACE";
constexpr char SPEC_LOG_FILE_LIMIT[] = "SPEC_LOG_FILE_LIMIT";
constexpr char SPEC_NR_OF_LOG_FILES[] = "SPEC_NR_OF_LOG_FILES";
constexpr char SPEC_LOG_ROTATION[] = "SPEC_LOG_ROTATION";

/* The generic CA, which is also the default one, and the environment variable that names another default. */
constexpr char GENERIC_CA[] = "GE";
constexpr char DEFAULT_CA_NR[] = "DEFAULT_CA_NR";

/* What counts where a key is missing. */
constexpr char DEFAULT_COMMON_LOG_FILE_ROOT[] = "Orvane\\Quillmark\\Logging";
constexpr char DEFAULT_SPEC_LOG_FILE_LIMIT[] = "1024000";
constexpr char DEFAULT_SPEC_NR_OF_LOG_FILES[] = "5";

/* Appenders and modifiers are connected in the log manager under these names. */
constexpr char QMRK_APPENDERS[] = "QMRK_APPENDERS";
constexpr char QMRK_MODIFIERS[] = "QMRK_MODIFIERS";
constexpr char APPENDER_WRITE2FILE_INIT[] = "APPENDER_WRITE2FILE_INIT";
constexpr char APPENDER_COUT_ROLLING_APPL_SPEC[] = "APPENDER_COUT_ROLLING_APPL_SPEC";
constexpr char APPENDER_COUT_APPL_SPEC[] = "APPENDER_COUT_APPL_SPEC";

/* The named event on which a listener waits unless it is told another name. */
constexpr char QMRK_LOG_EVENT[] = "QMRK_LOG_EVENT";

}  // namespace Quillmark_logging

#endif
