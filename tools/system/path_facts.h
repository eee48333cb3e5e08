// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace toolsystem {

enum class PathKind { missing, file, folder, pipe, socket, device, danglingLink };

/// What this program sees at a path in the system's form, links followed.
struct PathFacts {
  PathKind kind = PathKind::missing;
  bool isLink = false;      ///< the last part of the path is a link
  std::int64_t size = 0;    ///< bytes of a file
  std::uint32_t owner = 0;  ///< 0 on Windows
  std::string ownerName;    ///< empty on Windows
  // Always false on Windows:
  bool othersMayWrite = false;     ///< users who are neither the owner nor root, as members of the group or at all
  bool everybodyMayWrite = false;  ///< every user; not in a folder where each can remove only what is his
};

PathFacts factsOf(const std::string& _path);

/// Free bytes for users without privileges on the file system that holds a path; no value: that cannot be found out.
std::optional<std::uint64_t> freeBytes(const std::string& _path);

/// How many files users without privileges can still create there; no value: there is no limit, or it cannot be found
/// out.
std::optional<std::uint64_t> freeFiles(const std::string& _path);

}  // namespace toolsystem
