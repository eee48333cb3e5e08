// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace toolsystem {

/// Why something could not be done with a file.
struct FileFailure {
  std::string text;        ///< "cannot make a file in FOLDER: Permission denied"
  bool isDenied = false;   ///< another user may be allowed to
  bool isMissing = false;  ///< a folder or file is not there
};

/// Replaces the content of a file in one step: readers, and whoever looks after a crash at any moment, find the former
/// text or the new one. The text goes to a new file in the same folder, which is written to the disk and then takes the
/// name. Owner, group, mode, access control list and further attributes stay as they were; a new file has mode 0644
/// less the umask. A symbolic link stays one, and its target is replaced.
/// @param _path with separators of either kind.
/// @return no value when it is done; then the new name is on the disk too.
std::optional<FileFailure> replaceFile(const std::string& _path, const std::string& _bytes);

}  // namespace toolsystem
