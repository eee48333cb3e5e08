// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace toolsystem {

enum class PathKind { missing, file, folder, pipe, socket, device, danglingLink };

/// What this program sees at a path. Follows links.
struct PathFacts {
  PathKind kind = PathKind::missing;
  bool isHidden = false;       ///< a folder above it may not be entered, so it is not known whether there is anything
  bool isLink = false;         ///< the last part of the path is a link
  std::int64_t size = 0;       ///< bytes of a file
  std::int64_t writtenAt = 0;  ///< when it was last written, in nanoseconds since 1970-01-01 00:00 UTC
  std::uint32_t owner = 0;     ///< 0 on Windows
  std::string ownerName;       ///< the number, if the owner has no name; empty on Windows
  bool ownerMayWrite = true;   ///< and enter a folder; always true on Windows
  // Always false on Windows:
  bool othersMayWrite = false;     ///< users other than the owner and root may write
  bool everybodyMayWrite = false;  ///< every user may; never for a folder where each can remove only their own files
};

/// @param _path in the system's form, as below.
PathFacts factsOf(const std::string& _path);

struct FolderGroup {
  std::string name;
  bool isOwn = false;  ///< this program acts as a member
};

/// The group whose members may write in a folder as its owner may; no value if there is none, it has no name, or on
/// Windows.
std::optional<FolderGroup> groupOfFolder(const std::string& _folder);

/// The bytes free for unprivileged users on the file system that holds a path; no value if unknown.
std::optional<std::uint64_t> freeBytes(const std::string& _path);

/// How many files unprivileged users can still create there; no value if there is no limit or it is unknown.
std::optional<std::uint64_t> freeFiles(const std::string& _path);

}  // namespace toolsystem
