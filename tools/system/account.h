// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/shell_folder.h"

namespace toolsystem {

/// The user on whose behalf something happens. The numbers are 0 on Windows.
struct Account {
  std::string name;  ///< the number, if the user has no name
  std::uint32_t uid = 0;
  std::uint32_t gid = 0;
  std::vector<std::uint32_t> groups;  ///< the supplementary ones
  std::string home;                   ///< from the password entry; empty if there is none
};

using Environment = std::map<std::string, std::string>;

/// The current user, with the effective ids.
Account ownAccount();

/// A user by name or number; no value if there is none. On Windows only the current user.
std::optional<Account> accountOfUser(const std::string& _user);

/// The user as whom a process acts, with the process's groups; no value if there is no such process, or on Windows.
std::optional<Account> accountOfProcess(int _pid);

/// The environment of this program.
Environment ownEnvironment();

/// The environment with which a process was started; no value if it cannot be read.
std::optional<Environment> environmentOfProcess(int _pid);

/// Whether a process has ended, or has begun to: then its environment cannot be read any more, and nothing must be
/// concluded from that. Always false on Windows, where no environment of another process is read.
bool hasEnded(int _pid);

/// The folder through which to reach the files of a process that sees another file system than this program; empty if
/// it sees the same, or that is unknown.
std::string fileSystemOfProcess(int _pid);

/// Finds a base folder as the library would, in that environment and with that home. On Windows the current user's.
/// @param _path receives it in the library's form; untouched on failure.
bool baseFolder(platform::ShellFolder _folder, const Environment& _environment, const std::string& _home,
                std::string& _path);

/// Whether environment variables move the base folders: not on Windows.
bool foldersFollowEnvironment();

}  // namespace toolsystem
