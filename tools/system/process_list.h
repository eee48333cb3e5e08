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
  ended,    ///< killed, and nobody has waited for it yet
};

/// A process of the machine, as the system shows it.
struct ProcessFacts {
  std::uint32_t pid = 0;
  std::uint32_t userId = 0;      ///< the effective one; 0xFFFFFFFF on Windows
  std::uint32_t pageUserId = 0;  ///< the same user as the process itself sees it, in whose folder its page is
  std::string user;              ///< by name, else the number
  std::string name;              ///< of the program, in short
  std::string executable;        ///< its path, as the system writes it; empty when it cannot be read
  Activity activity = Activity::running;
  bool isReadable = false;  ///< false: what it has loaded is not known
  bool hasLibrary = false;  ///< has the set-up library, or holds an event of its own making
  /// The names of the events that it holds. None on Windows, where nobody can tell.
  std::vector<std::string> events;
  /// "/proc/PID/root" where the process sees other shared memory than the caller: in a container, or with a private
  /// /dev/shm. Else empty.
  std::string root;
  /// Equal for the processes of one user that see the same shared memory.
  std::string space;
};

/// The processes that have the library or may have it, in the order of their ids.
/// @param _only this one alone.
std::vector<ProcessFacts> listProcesses(std::optional<std::uint32_t> _only = std::nullopt);

/// What the system shows of a process, whether it has the library or not; what cannot be read is empty.
ProcessFacts factsOfProcess(std::uint32_t _pid);

/// A process of the user that sees the caller's shared memory, without a process: where his events would be.
ProcessFacts placeFacts(std::uint32_t _userId);

/// What such a process does; ended also when there is no process of that id any more.
Activity activityOf(std::uint32_t _pid);

/// How many users of events there are in the caller's shared memory whom the caller cannot look at: applications of
/// other users that listen. Always 0 on Windows.
std::size_t foreignListeners();

/// Whether the caller may look at every process: root, or an administrator.
bool seesEveryProcess();

}  // namespace toolsystem
