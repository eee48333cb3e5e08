// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// A user without a name, who is neither root nor the one whom AsUnprivilegedUser becomes.
constexpr unsigned int stranger = 12345;

/// While it lives, the whole process acts as a user without privileges (on Linux effective user and group 65534; when
/// the tests run without privileges anyway, as that user). File permissions apply then. Aborts when the switch fails.
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

/// Take rights on a file or folder from every user: all of them, or those to write. AsUnprivilegedUser lacks them then.
void denyAccess(const std::string& _path);
void denyWriting(const std::string& _path);

}  // namespace testsupport
