// SPDX-License-Identifier: MIT
#include "tests/support/as_unprivileged_user.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace testsupport {
namespace {

constexpr unsigned int nobody = 65534;

void orAbort(int _result) {
  if (_result != 0) {
    std::abort();
  }
}

namespace fs = std::filesystem;

fs::path native(std::string _path) {
  std::replace(_path.begin(), _path.end(), '\\', '/');
  return _path;
}

}  // namespace

AsUnprivilegedUser::AsUnprivilegedUser() : user_(::geteuid()), group_(::getegid()) {
  if (user_ == 0) {
    orAbort(::setegid(nobody));
    orAbort(::seteuid(nobody));
  }
}

AsUnprivilegedUser::~AsUnprivilegedUser() {
  if (user_ == 0) {
    orAbort(::seteuid(user_));
    orAbort(::setegid(group_));
  }
}

void denyAccess(const std::string& _path) { fs::permissions(native(_path), fs::perms::none); }

void denyWriting(const std::string& _path) {
  const fs::perms writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(native(_path), writing, fs::perm_options::remove);
}

}  // namespace testsupport
