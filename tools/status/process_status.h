// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnostics/status_page_values.h"

namespace qmrkctl {

// What a process shows of its logging on its status page (docs/status-page.md), as C++ values. Every text but bytes is
// valid UTF-8 but may contain line ends and other control characters. Paths have backslashes. A moment counts
// nanoseconds since 1970-01-01 00:00 UTC, and is empty if it never came.

namespace status = Quillmark_logging::status;

using Moment = std::optional<std::int64_t>;

/// A text of the page, which has limited room for it.
struct PageText {
  std::string text;
  std::uint32_t wholeSize = 0;  ///< in bytes, before it was cut
  bool isCut = false;
  std::string bytes;  ///< exactly as on the page, to reach a file whose name is no UTF-8
};

struct ApplicationName {
  std::string name;  ///< as given to initDefaultLogs
  bool isUnregistered = false;
};

struct LogState {
  std::string name;
  bool isOn = false;
};

struct SetupStatus {
  status::Call call = status::Call::none;  ///< the last call that set up
  Moment at;
  status::Result result = status::Result::none;
  status::Failure failure = status::Failure::none;
  PageText error;  ///< why it failed, in words
};

struct ClassStatus {
  std::uint64_t generation = 0;  ///< grows with each applied class list; 0: none was
  Moment appliedAt;
  std::uint64_t hash = 0;  ///< status::hashOf of the whole text
  PageText text;           ///< of the applied class list, as in the file
  std::string ca;          ///< whose class list it is
  PageText filter;
  std::vector<LogState> logs;
  std::uint32_t logsLeftOut = 0;
  Moment updatedAt;  ///< the last attempt to apply a class list
  status::Result updateResult = status::Result::none;
  status::Failure updateFailure = status::Failure::none;
  PageText updateError;
  Moment ownChangeAt;  ///< when the application itself last switched, since the list was applied
  status::Call ownChange = status::Call::none;
  PageText ownPattern;
};

struct ListenerStatus {
  status::ListenerState state = status::ListenerState::none;
  std::uint32_t threads = 0;  ///< how many threads listen
  std::string event;
  std::string ca;                ///< whose class list it follows
  std::uint64_t generation = 0;  ///< of the last setting of the event it has seen (Linux)
  std::uint64_t wakes = 0;       ///< how often it was woken
  Moment changedAt;              ///< since when the state holds
  Moment failedAt;
  std::uint32_t error = 0;  ///< a Windows code
  PageText failure;
};

struct LogFileStatus {
  PageText path;
  status::FileKind kind = status::FileKind::none;
  bool isFailing = false;
  bool hasOwnThread = false;
  std::uint64_t lost = 0;     ///< messages that could not be written
  std::uint64_t dropped = 0;  ///< messages for which the thread's queue had no room
  Moment failedAt;
  std::uint32_t error = 0;  ///< of the last failure, a Windows code
  std::uint64_t held = 0;   ///< bytes queued for the thread when the page was last written
};

struct ProcessStatus {
  std::uint32_t pid = 0;           ///< as the process sees itself
  std::uint64_t startTime = 0;     ///< in the system's unit; 0: unknown
  std::uint64_t pidNamespace = 0;  ///< 0: unknown
  std::uint32_t userId = 0;        ///< status::noUserId on Windows
  std::string user;                ///< empty on Linux
  PageText program;
  std::string libraryVersion;
  Moment writtenAt;
  bool isThreadSafe = false;
  bool traces = false;
  std::vector<ApplicationName> applications;
  std::uint32_t applicationsLeftOut = 0;
  std::string caAsked;
  std::string caInEffect;
  status::CaSource caSource = status::CaSource::unknown;
  std::uint32_t caChanges = 0;  ///< bits of status_page_values.h
  PageText cfgPath;
  PageText initPath;
  PageText commonLogPath;
  SetupStatus setUp;
  ClassStatus classes;
  ListenerStatus listener;
  std::vector<LogFileStatus> files;
  std::uint32_t filesLeftOut = 0;
};

}  // namespace qmrkctl
