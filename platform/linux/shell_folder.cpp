// SPDX-License-Identifier: MIT
#include "platform/shell_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

#include "platform/fault.h"

namespace platform {
namespace {

// Below a user's home, by the XDG base directory convention.
constexpr char userData[] = "/.local/share";

// The root alone becomes empty, to which a path can be appended like to any other folder.
std::string withoutFinalSeparators(std::string _path) {
  _path.erase(_path.find_last_not_of('/') + 1);
  return _path;
}

// Reads a folder from a variable of the environment; false unless it is an absolute path.
bool folderFromEnvironment(const char* _name, std::string& _path) {
  const char* const value = ::secure_getenv(_name);
  if (value == nullptr || *value != '/') return false;
  _path = withoutFinalSeparators(value);
  return true;
}

bool homeFromPasswordEntry(std::string& _home) {
  std::vector<char> strings(1024);
  passwd entry{};
  passwd* found = nullptr;
  int error = ERANGE;
  while ((error = ::getpwuid_r(::geteuid(), &entry, strings.data(), strings.size(), &found)) == ERANGE) {
    strings.resize(strings.size() * 2);
  }
  if (error != 0 || found == nullptr || found->pw_dir == nullptr || *found->pw_dir != '/') return false;
  _home = withoutFinalSeparators(found->pw_dir);
  return true;
}

bool userAppData(std::string& _path) {
  if (folderFromEnvironment("QMRK_APPDATA", _path) || folderFromEnvironment("XDG_DATA_HOME", _path)) return true;
  std::string home;
  if (!folderFromEnvironment("HOME", home) && !homeFromPasswordEntry(home)) return false;
  _path = home + userData;
  return true;
}

bool machineFolder(const char* _override, const char* _default, std::string& _path) {
  if (!folderFromEnvironment(_override, _path)) _path = _default;
  return true;
}

}  // namespace

bool shellFolder(ShellFolder _folder, std::string& _path) {
  if (injectedFault(Call::shellFolder) != noError) return false;
  switch (_folder) {
    case ShellFolder::userAppData:
      return userAppData(_path);
    case ShellFolder::commonProgramFiles:
      return machineFolder("QMRK_COMMON_PROGRAM_FILES", "/etc/xdg", _path);
    case ShellFolder::commonAppData:
      return machineFolder("QMRK_COMMON_APPDATA", "/var/lib", _path);
  }
  return false;
}

}  // namespace platform
