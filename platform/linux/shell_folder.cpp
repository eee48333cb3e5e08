// SPDX-License-Identifier: MIT
#include "platform/shell_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

#include "platform/fault.h"
#include "platform/linux/base_folder.h"

namespace platform {
namespace {

bool homeOfUser(std::string& _home) {
  std::vector<char> strings(1024);
  passwd entry{};
  passwd* found = nullptr;
  int error = ERANGE;
  while ((error = ::getpwuid_r(::geteuid(), &entry, strings.data(), strings.size(), &found)) == ERANGE) {
    strings.resize(strings.size() * 2);
  }
  if (error != 0 || found == nullptr || found->pw_dir == nullptr) return false;
  _home = found->pw_dir;
  return true;
}

}  // namespace

bool shellFolder(ShellFolder _folder, std::string& _path) {
  if (injectedFault(Call::shellFolder) != noError) return false;
  return baseFolder(_folder, {[](const char* _name) { return ::secure_getenv(_name); }, &homeOfUser}, _path);
}

}  // namespace platform
