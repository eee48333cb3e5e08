/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_SETUP_H
#define QUILLMARK_LOGGING_SETUP_H

/// @file
/// Setting up the logs of an application. Included by quillmark_logging.h, which says what holds for all functions.

#include <string>

#include "quillmark_logging_export.h"

/// The functions of the set-up library.
namespace Quillmark_logging {

/// Sets up the default logs of the process, for the default CA: the environment variable DEFAULT_CA_NR, else "GE".
///
/// Every line gets a time stamp, a prefix and a line end. The classes of COMMON_LOG_FILE_FILTER write to the common log
/// file, all classes to the console if that is wanted, and exactly the classes of the `.init` file are on. Then the
/// messages that were logged before are written. Other threads see all of this at once or nothing of it.
///
/// A CA without a configuration file falls back to "GE", whose file is generated if it is missing too. A second call
/// replaces the console, the stamps and the common log file of every class that is in the filter again. Classes that
/// have left the filter stay attached to the file.
///
/// @param _calledBy    name of the application, for error records and traces; may be empty.
/// @param _writeToCout whether lines also go to the standard output.
/// @return false when no usable configuration is found, LOG_STATE is off, COMMON_LOG_FILE_NAME is missing, or the log
///   folder cannot be created; nothing is connected then. Reasons that a user must see are in the file qmrk.info.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API bool initDefaultLogs(std::string _calledBy, bool _writeToCout);

/// Sets up the default logs for a named CA.
///
/// A listener (LogEventHandler) and updateLogLevels() without a CA still read the class list of the default CA, so an
/// application that names a CA here also sets DEFAULT_CA_NR, before it starts the listener.
///
/// @param _calledBy    name of the application, for error records and traces; may be empty.
/// @param _ca          the CA.
/// @param _writeToCout whether lines also go to the standard output.
/// @return false, with nothing connected, as the form without a CA.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API bool initDefaultLogs(std::string _calledBy, const std::string& _ca, bool _writeToCout);

/// Does not compile: a text in place of the bool would count as true, and a CA passed there would be ignored.
template <typename T>
bool initDefaultLogs(std::string _calledBy, T* _writeToCout) = delete;
/// Does not compile, for the same reason.
template <typename T>
bool initDefaultLogs(std::string _calledBy, const std::string& _ca, T* _writeToCout) = delete;

/// Connects logs to a file of the application's own, then applies the class list of the default CA (the environment
/// variable DEFAULT_CA_NR, else "GE").
///
/// The file is `<_fileName>_log.txt` in the folder `Application logs` below the common log folder of the CA. With
/// SPEC_LOG_ROTATION on, it is limited in size and rotated; it is then always appended to.
///
/// @code
/// if (!Quillmark_logging::createApplicationSpecificLogFile("Demo.App;", "rotating_file", false)) return 1;
/// @endcode
///
/// @param _logLevel  one pattern of logs, or several, each ended by ";" (what follows the last ";" is dropped).
/// @param _fileName  not empty. May contain backslashes. Folders that they name are created without rotation; with it,
///   they must exist, or every line is lost.
/// @param _overWrite whether the file is emptied, once per call, at the first message; without rotation only.
/// @return false when no usable configuration is found or the folder cannot be created; nothing is connected then. A
///   file that cannot be opened is no failure.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, bool _overWrite);

/// Connects logs to a file of the application's own, for a named CA.
/// @param _logLevel  one pattern of logs, or several, each ended by ";" (what follows the last ";" is dropped).
/// @param _fileName  not empty. May contain backslashes. Folders that they name are created without rotation; with it,
///   they must exist, or every line is lost.
/// @param _ca        the CA.
/// @param _overWrite whether the file is emptied, once per call, at the first message; without rotation only.
/// @return false, with nothing connected, as the form without a CA.
/// @throws what the log manager throws, which is std::bad_alloc.
QMRK_LOG_API bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, const std::string& _ca,
                                                   bool _overWrite);

/// Does not compile: a text in place of the bool would count as true, and a CA passed there would be ignored.
template <typename T>
bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, T* _overWrite) = delete;
/// Does not compile, for the same reason.
template <typename T>
bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, const std::string& _ca,
                                      T* _overWrite) = delete;

/// The counterpart of the set-up, for an application that ends. Changes nothing.
/// @param _appName name of the application, for traces.
/// @return true.
QMRK_LOG_API bool unregisterApplication(const std::string& _appName);

/// The counterpart of the set-up, for a named CA. Changes nothing.
/// @param _appName name of the application, for traces.
/// @param _ca      ignored.
/// @return true.
QMRK_LOG_API bool unregisterApplication(const std::string& _appName, const std::string& _ca);

/// Finds the folder of the common log file. Neither tests it nor creates it.
/// @param[out] _path the folder, with backslashes and without a final one unless the configured root ends in one. When
///   the result is false it is unchanged, or holds the application-data folder alone.
/// @param _ca        the CA.
/// @return false when the configuration cannot be read or the system names no folder for application data.
QMRK_LOG_API bool getCommonLogFilePath(std::string& _path, const std::string& _ca);

}  // namespace Quillmark_logging

#endif
