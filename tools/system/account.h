// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/shell_folder.h"

namespace toolsystem {

/// Who acts. Windows knows no such numbers; they are 0 there.
struct Account {
  std::string name;  ///< the number where the user has no name
  std::uint32_t uid = 0;
  std::uint32_t gid = 0;
  std::vector<std::uint32_t> groups;  ///< the supplementary ones
  std::string home;                   ///< of the password entry; empty: there is none
};

using Environment = std::map<std::string, std::string>;

/// The running user, with the effective ids.
Account ownAccount();

/// A user by name or number; no value: there is none of that name. Windows knows the running user only.
std::optional<Account> accountOfUser(const std::string& _user);

/// The user as whom a process acts, with its own groups; no value: there is no such process. None on Windows.
std::optional<Account> accountOfProcess(int _pid);

/// The environment of this program.
Environment ownEnvironment();

/// The environment with which a process was started; no value: it cannot be read.
std::optional<Environment> environmentOfProcess(int _pid);

/// The folder by which the files of a process are reached that sees others than this program; empty when it sees the
/// same, or when that cannot be found out.
std::string fileSystemOfProcess(int _pid);

/// A base folder as the library finds it, in that environment and for a user with that home. Windows has one for the
/// running user only, whatever the arguments are.
/// @param _path untouched on failure.
bool baseFolder(platform::ShellFolder _folder, const Environment& _environment, const std::string& _home,
                std::string& _path);

/// Whether variables of the environment move the base folders: not on Windows.
bool foldersFollowEnvironment();

}  // namespace toolsystem
