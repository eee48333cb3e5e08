// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The base folders of the system. Each call looks its folder up again.
enum class ShellFolder {
  /// CSIDL_APPDATA; on Linux QMRK_APPDATA, else $XDG_DATA_HOME, else $HOME/.local/share, else the password entry's home
  /// followed by /.local/share.
  userAppData,
  /// CSIDL_PROGRAM_FILES_COMMON; on Linux QMRK_COMMON_PROGRAM_FILES, else /etc/xdg.
  commonProgramFiles,
  /// CSIDL_COMMON_APPDATA; on Linux QMRK_COMMON_APPDATA, else /var/lib.
  commonAppData,
};

/// SHGetFolderPathA with no owner, no token and flag 0. On Linux a variable counts only if its value is an absolute
/// path; it is read with secure_getenv.
/// @param _path receives the folder without a final separator (on Linux with slashes, the root itself as an empty
///   path); untouched on failure.
/// @return false when the system does not know the folder.
bool shellFolder(ShellFolder _folder, std::string& _path);

}  // namespace platform
