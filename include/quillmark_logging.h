/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_H
#define QUILLMARK_LOGGING_H

/* The logging set-up library. An application calls initDefaultLogs first, then logs through the log manager
 * (boost/logging/logging.hpp); the library itself writes no log line but the operating-system line of the set-up.
 *
 * What is set up is decided by configuration files. They are addressed by a customer adaptation ("CA", such as "GE" for
 * the generic one, or "CA12"), in any letter case, and are read at every use: an edited file counts from the next call
 * on.
 *
 * Strings are narrow 8-bit strings in the process code page (on Linux the bytes of the file system). Paths have
 * backslashes on every platform; see nativePath.
 *
 * Unless a function says otherwise: it returns true when everything was done, reports failures by its result only, and
 * throws nothing but std::bad_alloc. It may be called on any thread and takes no lock. The functions that change the
 * log manager (initDefaultLogs, createApplicationSpecificLogFile and those of the log levels) must not run at the same
 * time as each other; the messages of other threads may go on meanwhile.
 *
 * Longer than the budget: it is the whole contract with applications, which include one header. */

#include <cstdint>
#include <string>

#include "quillmark_logging_export.h"

namespace Quillmark_logging {

/* ---- Set-up ---- */

/* Sets up the default logs of the process: console (if wanted), time stamp, prefix and line end of every line, the
 * common log file for the classes of COMMON_LOG_FILE_FILTER, and the enabled classes; then writes out what was logged
 * before. A CA without a configuration file falls back to "GE", whose file is generated where it is missing too.
 * A second call replaces what the first has connected.
 *
 * _calledBy     name of the application, for error records and traces; may be empty.
 * _ca           the CA. Without it: the environment variable DEFAULT_CA_NR, else "GE".
 * _writeToCout  whether lines also go to the standard output.
 *
 * Returns false when no usable configuration is found, LOG_STATE is off, COMMON_LOG_FILE_NAME is missing, or the log
 * folder cannot be made; nothing has then been connected. Reasons that a user must see are in the file qmrk.info.
 * Exceptions of the log manager are passed on. */
QMRK_LOG_API bool initDefaultLogs(std::string _calledBy, bool _writeToCout);
QMRK_LOG_API bool initDefaultLogs(std::string _calledBy, const std::string& _ca, bool _writeToCout);

/* A text where the bool belongs does not compile: it would count as true, and a CA given so would be ignored. */
template <typename T>
bool initDefaultLogs(std::string _calledBy, T* _writeToCout) = delete;
template <typename T>
bool initDefaultLogs(std::string _calledBy, const std::string& _ca, T* _writeToCout) = delete;

/* Connects logs to a file of the application's own, "<_fileName>_log.txt" in the folder "Application logs" below the
 * common log folder of the CA, and applies the enabled classes. With SPEC_LOG_ROTATION on, the file is limited in size
 * and rotated; it is then always appended to.
 *
 * _logLevel   one logs pattern, or several, each ended by ";" (what follows the last ";" is dropped).
 * _fileName   must not be empty; may hold backslashes, whose folders must exist.
 * _ca         the CA. Without it: the environment variable DEFAULT_CA_NR, else "GE".
 * _overWrite  whether the file is emptied, once for a call, at the first message; without rotation only.
 *
 * Returns false when no usable configuration is found or the folder cannot be made; nothing has then been connected.
 * A file that cannot be opened is no failure. Exceptions of the log manager are passed on. */
QMRK_LOG_API bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, bool _overWrite);
QMRK_LOG_API bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, const std::string& _ca,
                                                   bool _overWrite);

/* As above: a text where the bool belongs does not compile. */
template <typename T>
bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, T* _overWrite) = delete;
template <typename T>
bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, const std::string& _ca,
                                      T* _overWrite) = delete;

/* Counterpart for leaving. Changes nothing; always true. The second argument is ignored. */
QMRK_LOG_API bool unregisterApplication(const std::string& _appName);
QMRK_LOG_API bool unregisterApplication(const std::string& _appName, const std::string& _ca);

/* The folder of the common log file of a CA, without a final backslash unless the configured root ends in one. The
 * folder is neither tested nor created.
 * _path  receives the folder. When the result is false it is unchanged, or holds the application-data folder alone. */
QMRK_LOG_API bool getCommonLogFilePath(std::string& _path, const std::string& _ca);

/* ---- Log levels ---- */

/* Attaches a file (full path) to each class of COMMON_LOG_FILE_FILTER of the CA. Entries of the filter are ended by
 * ";"; what follows the last ";" is dropped. False, and nothing changed, when the key is missing. */
QMRK_LOG_API bool setInitialLogLevels(std::string _logFile, const std::string& _ca);

/* Switches on exactly the classes that the CA's .init file lists, and everything else off; an empty list switches
 * everything off. All at once: a log that stays on loses no message. False, and nothing changed, when the configuration
 * or the list cannot be read. Without a CA: the environment variable DEFAULT_CA_NR, else "GE". */
QMRK_LOG_API bool updateLogLevels();
QMRK_LOG_API bool updateLogLevels(const std::string& _ca);

/* Direct switches, in force until the next updateLogLevels: all logs on; the logs that one pattern selects on; all logs
 * off. */
QMRK_LOG_API void enableAllLogs();
QMRK_LOG_API void enableSpecifiedLogs(std::string _logs);
QMRK_LOG_API void disableAllLogs();

/* ---- Environment, trace, paths ---- */

/* The value of an environment variable (GetEnvironmentVariableA with a buffer of 256 bytes).
 * _value  receives the value, or "" when it has 256 characters or more; untouched when the result is false.
 * Returns whether the variable is set and not empty. */
QMRK_LOG_API bool getEnvironmentVariable(const std::string& _name, std::string& _value);

/* Whether the console trace of the library was switched on (QMRK_TRACE of "GE") when the library was loaded. Never
 * changes afterwards. */
QMRK_LOG_API bool isTraceEnabled();

/* A path of this library as the system wants it: on Linux every backslash becomes a slash, on Windows it is the path
 * itself. */
QMRK_LOG_API std::string nativePath(const std::string& _path);

/* ---- Versions ---- */

/* The file version, four decimal numbers joined by points ("2.1.0.7"), of the library and of the program LogTest, or
 * "N/A" when it cannot be read. */
QMRK_LOG_API std::string getQuillmarkLoggingVersion();
QMRK_LOG_API std::string getLogTestVersion();

/* Writes both versions to the standard output stream, or nothing at all unless both can be read. Leaves blank fill and
 * left adjustment set on the stream. */
QMRK_LOG_API void printVersionInfo();

/* ---- Stamps for log lines ---- */

/* The id of the process, of the calling thread: the decimal digits, or formatted "[<digits>] ". "-1" stands for an id
 * that cannot be turned into text. */
QMRK_LOG_API std::string getProcessId(bool _formatted);
QMRK_LOG_API std::string getFormattedProcessId();
QMRK_LOG_API std::string getThreadId(bool _formatted);
QMRK_LOG_API std::string getFormattedThreadId();

/* A source location as text, made for location(__FILE__, __LINE__, __func__). "LOC-ERROR" stands for one that cannot be
 * turned into text. */
QMRK_LOG_API std::string location(const char* _file, int _line, const char* _function);

}  // namespace Quillmark_logging

/* ---- The listener that re-applies the log levels: class LogEventHandler, in the global namespace ---- */
#include "quillmark_logging_event_handler.h"

#endif
