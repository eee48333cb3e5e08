// SPDX-License-Identifier: MIT
#include "platform/linux/base_folder.h"

namespace platform {
namespace {

// Below a user's home, by the XDG base directory convention.
constexpr char userData[] = "/.local/share";

// The root alone becomes empty, to which a path can be appended like to any other folder.
std::string withoutFinalSeparators(std::string _path) {
  _path.erase(_path.find_last_not_of('/') + 1);
  return _path;
}

// False unless the value is an absolute path.
bool folderFromVariable(const BaseFolderSource& _source, const char* _name, std::string& _path) {
  const char* const value = _source.variable(_name);
  if (value == nullptr || *value != '/') return false;
  _path = withoutFinalSeparators(value);
  return true;
}

bool homeFromPasswordEntry(const BaseFolderSource& _source, std::string& _home) {
  std::string home;
  if (!_source.home(home) || !home.starts_with('/')) return false;
  _home = withoutFinalSeparators(home);
  return true;
}

bool userAppData(const BaseFolderSource& _source, std::string& _path) {
  if (folderFromVariable(_source, "QMRK_APPDATA", _path) || folderFromVariable(_source, "XDG_DATA_HOME", _path)) {
    return true;
  }
  std::string home;
  if (!folderFromVariable(_source, "HOME", home) && !homeFromPasswordEntry(_source, home)) return false;
  _path = home + userData;
  return true;
}

bool machineFolder(const BaseFolderSource& _source, const char* _override, const char* _default, std::string& _path) {
  if (!folderFromVariable(_source, _override, _path)) _path = _default;
  return true;
}

}  // namespace

bool baseFolder(ShellFolder _folder, const BaseFolderSource& _source, std::string& _path) {
  switch (_folder) {
    case ShellFolder::userAppData:
      return userAppData(_source, _path);
    case ShellFolder::commonProgramFiles:
      return machineFolder(_source, "QMRK_COMMON_PROGRAM_FILES", "/etc/xdg", _path);
    case ShellFolder::commonAppData:
      return machineFolder(_source, "QMRK_COMMON_APPDATA", "/var/lib", _path);
  }
  return false;
}

}  // namespace platform
