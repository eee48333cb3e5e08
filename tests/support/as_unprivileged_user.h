// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// A user id without a name: neither root nor the user that AsUnprivilegedUser becomes.
constexpr unsigned int stranger = 12345;

/// While it lives, the whole process acts as an unprivileged user, to whom file permissions apply (on Linux effective
/// user and group 65534, unless the tests run unprivileged anyway). Aborts if the switch fails.
class AsUnprivilegedUser {
 public:
  AsUnprivilegedUser();
  ~AsUnprivilegedUser();
  AsUnprivilegedUser(const AsUnprivilegedUser&) = delete;
  AsUnprivilegedUser& operator=(const AsUnprivilegedUser&) = delete;

 private:
  unsigned int user_;
  unsigned int group_;
};

/// Take all rights on a file or folder, or those to write, from every user, so that AsUnprivilegedUser lacks them.
void denyAccess(const std::string& _path);
void denyWriting(const std::string& _path);

}  // namespace testsupport
