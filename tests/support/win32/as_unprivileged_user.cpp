// SPDX-License-Identifier: MIT
#include "tests/support/as_unprivileged_user.h"

#include "platform/win32/windows_api.h"
// After windows_api.h, on whose types it relies.
#include <aclapi.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// Windows has no other user into whom a process could turn for a while, and takes rights from whoever runs the tests.
// So a denial is only noted until the unprivileged user is there, and withdrawn when he leaves.

namespace testsupport {
namespace {

// To see that the file is there, and no more.
constexpr DWORD noAccess = READ_CONTROL;
constexpr DWORD reading = GENERIC_READ | GENERIC_EXECUTE;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct Denial {
  std::string path;
  // The rights that are left to everybody.
  DWORD rights;
  // Open while the denial holds, because it cannot be opened then.
  HANDLE file;
};

std::vector<Denial>& denials() {
  static auto* const all = new std::vector<Denial>;
  return *all;
}

int usersAlive = 0;

void orAbort(bool _done, const Denial& _denial) {
  if (_done) return;
  std::fprintf(stderr, "cannot change the rights on %s: error %lu\n", _denial.path.c_str(), ::GetLastError());
  std::abort();
}

// The C run-time's access test knows only this attribute, which in turn means nothing for folders.
bool isDeniedByAttribute(const Denial& _denial) {
  const bool isFolder = (::GetFileAttributesA(_denial.path.c_str()) & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return _denial.rights == reading && !isFolder;
}

void setAttribute(const Denial& _denial, DWORD _attribute) {
  orAbort(::SetFileAttributesA(_denial.path.c_str(), _attribute) != 0, _denial);
}

void setRights(const Denial& _denial, DWORD _rights) {
  EXPLICIT_ACCESSA entry{};
  char everybody[] = "Everyone";
  ::BuildExplicitAccessWithNameA(&entry, everybody, _rights, SET_ACCESS, NO_INHERITANCE);
  ACL* list = nullptr;
  orAbort(::SetEntriesInAclA(1, &entry, nullptr, &list) == ERROR_SUCCESS, _denial);
  SECURITY_DESCRIPTOR descriptor{};
  ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
  ::SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
  orAbort(::SetKernelObjectSecurity(_denial.file, DACL_SECURITY_INFORMATION, &descriptor) != 0, _denial);
  ::LocalFree(list);
}

void apply(Denial& _denial) {
  if (isDeniedByAttribute(_denial)) {
    setAttribute(_denial, FILE_ATTRIBUTE_READONLY);
    return;
  }
  _denial.file = ::CreateFileA(_denial.path.c_str(), READ_CONTROL | WRITE_DAC, shareAll, nullptr, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  orAbort(_denial.file != INVALID_HANDLE_VALUE, _denial);
  setRights(_denial, _denial.rights);
}

void withdraw(const Denial& _denial) {
  if (_denial.file == INVALID_HANDLE_VALUE) {
    setAttribute(_denial, FILE_ATTRIBUTE_NORMAL);
    return;
  }
  setRights(_denial, GENERIC_ALL);
  ::CloseHandle(_denial.file);
}

void deny(const std::string& _path, DWORD _rights) {
  denials().push_back({_path, _rights, INVALID_HANDLE_VALUE});
  if (usersAlive > 0) apply(denials().back());
}

}  // namespace

AsUnprivilegedUser::AsUnprivilegedUser() : user_(0), group_(0) {
  if (++usersAlive > 1) return;
  for (Denial& denial : denials()) {
    apply(denial);
  }
}

AsUnprivilegedUser::~AsUnprivilegedUser() {
  if (--usersAlive > 0) return;
  for (const Denial& denial : denials()) {
    withdraw(denial);
  }
  denials().clear();
}

void denyAccess(const std::string& _path) { deny(_path, noAccess); }

void denyWriting(const std::string& _path) { deny(_path, reading); }

}  // namespace testsupport
