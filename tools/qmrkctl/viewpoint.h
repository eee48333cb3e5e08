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

/// With whose eyes the machine is looked at. Paths are in the library's form (with backslashes) and as the viewpoint
/// itself writes them; only the functions below go through its root.
struct Viewpoint {
  toolsystem::Account account;
  toolsystem::Environment environment;
  std::string root;  ///< where its files are reached: "/proc/PID/root" for a process that sees others, else ""
};

/// The running user, with this program's environment.
Viewpoint ownViewpoint();

/// A user by name or number. The environment of his sessions is not known: it has HOME, and those variables of this
/// program that move folders of the machine. No value: there is no such user.
std::optional<Viewpoint> viewpointOfUser(const std::string& _user);

/// A running process. Without the permission to read its environment it has that of viewpointOfUser. No value: there is
/// no such process.
std::optional<Viewpoint> viewpointOfProcess(int _pid);

/// A base folder, found as the library finds it in a process of the viewpoint.
/// @param _path in the form in which the library holds it; untouched on failure.
bool baseFolder(const Viewpoint& _viewpoint, platform::ShellFolder _folder, std::string& _path);

/// The path in the system's form by which this program reaches a file of the viewpoint.
std::string reachedPath(const Viewpoint& _viewpoint, const std::string& _path);

/// What stands at a path, links followed, as this program sees it.
toolsystem::PathFacts factsOf(const Viewpoint& _viewpoint, const std::string& _path);

/// The folder above; empty where there is none.
std::string parentOf(const std::string& _path);

/// The path itself, or the nearest folder above it that is there.
std::string existingPart(const Viewpoint& _viewpoint, std::string _path);

/// What the user of the viewpoint may do with a file or folder.
toolsystem::PathRights rightsOn(const Viewpoint& _viewpoint, const std::string& _path);

/// The same for many paths at once, which costs hardly more than for one.
std::vector<toolsystem::PathRights> rightsOn(const Viewpoint& _viewpoint, const std::vector<std::string>& _paths);

bool mayRead(const Viewpoint& _viewpoint, const std::string& _path);
bool mayWrite(const Viewpoint& _viewpoint, const std::string& _path);

}  // namespace qmrkctl
