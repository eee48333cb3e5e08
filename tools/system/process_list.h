// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace toolsystem {

enum class Activity {
  running,
  stopped,  ///< by SIGSTOP or a debugger
  ended,    ///< it has ended, and its parent has not waited for it yet
};

/// A process, as the system shows it.
struct ProcessFacts {
  std::uint32_t pid = 0;
  std::uint32_t userId = 0;      ///< the effective one; 0xFFFFFFFF on Windows
  std::uint32_t pageUserId = 0;  ///< the same user as the process itself sees it; names the folder of its page
  std::string user;              ///< the name, else the number
  std::string name;              ///< short name of the program
  std::string executable;        ///< its path in the system's form; empty if it cannot be read
  Activity activity = Activity::running;
  bool isReadable = false;  ///< false: what it has loaded is unknown
  bool hasLibrary = false;  ///< it has loaded the set-up library, or holds one of its events
  /// The names of the events that it holds. Always empty on Windows, where they cannot be found out.
  std::vector<std::string> events;
  /// "/proc/PID/root" if the process sees other shared memory than the caller (in a container, or with a private
  /// /dev/shm); else empty.
  std::string root;
  /// The same for all processes of one user that see the same shared memory.
  std::string space;
};

/// The processes that have or may have the library, sorted by id.
/// @param _only looks at this process alone.
std::vector<ProcessFacts> listProcesses(std::optional<std::uint32_t> _only = std::nullopt);

/// What the system shows of a process, with or without the library; what cannot be read is empty.
ProcessFacts factsOfProcess(std::uint32_t _pid);

/// Facts that stand for a user without processes: where the user's events would be in the caller's shared memory.
ProcessFacts placeFacts(std::uint32_t _userId);

/// The current activity of a process; ended if no process has that id.
Activity activityOf(std::uint32_t _pid);

/// How many listening applications of other users there are in the caller's shared memory that the caller cannot
/// examine. Always 0 on Windows.
std::size_t foreignListeners();

/// Whether the caller may examine every process: root, or an administrator.
bool seesEveryProcess();

}  // namespace toolsystem
