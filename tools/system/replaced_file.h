// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace toolsystem {

/// Why an operation on a file failed.
struct FileFailure {
  std::string text;        ///< "cannot make a file in FOLDER: Permission denied"
  bool isDenied = false;   ///< another user may be allowed to
  bool isMissing = false;  ///< a folder or file is missing
};

/// Replaces the content of a file in one step: at any moment, even after a crash, readers find either the old text or
/// the new one. Writes the text to a new file in the same folder, brings that to the disk, and renames it. Removes what
/// programs that were killed before have left there.
///
/// On Linux the file keeps group, mode, access control list and other attributes, and its owner if this program may
/// give files away; otherwise it changes hands only if its owner can still write it through the group. Its owner may
/// always replace it: where he is not in its group, the group changes, and gets no more rights than everybody. Else,
/// and if it is no regular file, this fails. A file that did not exist gets mode 0644 less the umask, and is for those
/// who may write in its folder. A symbolic link stays one, and its target is replaced; for root, only a link of root or
/// of the target's owner.
/// @param _path with separators of either kind.
/// @param _bytes are written unchanged.
/// @return no value on success; then the new name is on the disk, too. On failure the old text is in place, unless only
///   the folder could not be brought to the disk.
std::optional<FileFailure> replaceFile(const std::string& _path, const std::string& _bytes);

}  // namespace toolsystem
