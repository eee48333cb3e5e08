// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace Quillmark_logging::status {

// What the numbers of the status page stand for. A reader takes a value that it does not know as the first one.

/// Bits of the field "modes".
constexpr std::uint32_t threadSafeMode = 1;  ///< files are written by threads of their own
constexpr std::uint32_t traceMode = 2;       ///< the library traces its steps

/// The user id of a system that has none.
constexpr std::uint32_t noUserId = 0xFFFFFFFF;

/// Where the CA that was asked for came from.
enum class CaSource : std::uint32_t { unknown, given, environment, generic };

/// Bits of the field "ca_changes": how the CA in effect came to be another one.
constexpr std::uint32_t fallenBack = 1;  ///< its configuration file was missing, so the generic one counts
constexpr std::uint32_t redirected = 2;  ///< the generic file names another CA
constexpr std::uint32_t generated = 4;   ///< the generic file was missing and was generated

enum class Call : std::uint32_t {
  none,
  initDefaultLogs,
  createApplicationSpecificLogFile,
  setInitialLogLevels,
  updateLogLevels,
  enableAllLogs,
  enableSpecifiedLogs,
  disableAllLogs,
};

enum class Result : std::uint32_t { none, done, failed };

/// Why a set-up or an update failed.
enum class Failure : std::uint32_t {
  none,
  noConfiguration,  ///< no configuration file that can be read
  noPath,           ///< the system names no folder for configuration files
  switchedOff,      ///< LOG_STATE is not on
  noFileName,       ///< COMMON_LOG_FILE_NAME is missing
  noLogFolder,      ///< the folder of the common log is unknown
  folderNotMade,    ///< the folder of the log cannot be created
  emptyName,        ///< the application gave an empty file name
  listUnreadable,   ///< the class list cannot be read
  noFilter,         ///< COMMON_LOG_FILE_FILTER is missing
  exception,        ///< such as that of exhausted memory
};

enum class ListenerState : std::uint32_t { none, waiting, updating, ended, failed };

enum class FileKind : std::uint32_t { none, common, plain, rolling };

/// Bits of the state of a file.
constexpr std::uint32_t isFailing = 1;     ///< the last message could not be written
constexpr std::uint32_t hasOwnThread = 2;  ///< thread-safe mode: a thread of its own writes it

/// Flag of an entry of the list "logs".
constexpr std::uint8_t isOn = 1;
/// Flag of an entry of the list "applications": it has told that it ends.
constexpr std::uint8_t isUnregistered = 1;

/// The hash of a class list: FNV-1a of 64 bits over the text of the file, with CR LF read as LF.
/// @param _before the hash of what stands before the text.
constexpr std::uint64_t hashOf(std::string_view _text, std::uint64_t _before = 0xCBF29CE484222325) {
  std::uint64_t hash = _before;
  for (const char character : _text) {
    hash ^= static_cast<unsigned char>(character);
    hash *= 0x100000001B3;
  }
  return hash;
}

}  // namespace Quillmark_logging::status
