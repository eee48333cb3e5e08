// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/shell_folder.h"
#include "tools/system/account.h"
#include "tools/system/path_facts.h"
#include "tools/system/path_rights.h"

namespace qmrkctl {

/// A user or process through whose eyes the machine is examined. Paths are in the library's form (with backslashes), as
/// the viewpoint itself names them; only the functions below add its root.
struct Viewpoint {
  toolsystem::Account account;
  toolsystem::Environment environment;
  std::string root;  ///< where this program reaches its files: "/proc/PID/root" if they are others, else ""
};

/// The current user, with this program's environment.
Viewpoint ownViewpoint();

/// A user by name or number. The environment of the user's sessions is unknown, so it holds only HOME and those
/// variables of this program that move the machine's folders.
/// @return no value if there is no such user.
std::optional<Viewpoint> viewpointOfUser(const std::string& _user);

/// A running process. If its environment cannot be read, that of viewpointOfUser takes its place.
/// @return no value if there is no such process.
std::optional<Viewpoint> viewpointOfProcess(int _pid);

/// Finds a base folder as the library would in a process of the viewpoint.
/// @param _path receives it in the library's form; untouched on failure.
bool baseFolder(const Viewpoint& _viewpoint, platform::ShellFolder _folder, std::string& _path);

/// The path, in the system's form, by which this program reaches a file of the viewpoint.
std::string reachedPath(const Viewpoint& _viewpoint, const std::string& _path);

/// What is at a path, as this program sees it. Follows links.
toolsystem::PathFacts factsOf(const Viewpoint& _viewpoint, const std::string& _path);

/// The path without its last part; empty if it has only one.
std::string parentOf(const std::string& _path);

/// The path itself or, if it is missing, the nearest existing folder above it.
std::string existingPart(const Viewpoint& _viewpoint, std::string _path);

/// What the viewpoint's user may do with a file or folder.
toolsystem::PathRights rightsOn(const Viewpoint& _viewpoint, const std::string& _path);

/// The same for many paths, in their order, at hardly more cost than for one.
std::vector<toolsystem::PathRights> rightsOn(const Viewpoint& _viewpoint, const std::vector<std::string>& _paths);

bool mayRead(const Viewpoint& _viewpoint, const std::string& _path);
bool mayWrite(const Viewpoint& _viewpoint, const std::string& _path);

}  // namespace qmrkctl
