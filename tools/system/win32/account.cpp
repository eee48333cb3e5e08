// SPDX-License-Identifier: MIT
#include "tools/system/account.h"

#include <array>
#include <cstdlib>

#include "platform/win32/windows_api.h"

// Windows knows the accounts, environments and folders of other users too, but tells them to services of the system
// only.

namespace toolsystem {
namespace {

bool isSameName(const std::string& _one, const std::string& _other) {
  return ::CompareStringA(LOCALE_INVARIANT, NORM_IGNORECASE, _one.c_str(), -1, _other.c_str(), -1) == CSTR_EQUAL;
}

}  // namespace

Account ownAccount() {
  std::array<char, 256> name{};
  DWORD size = static_cast<DWORD>(name.size());
  Account account;
  if (::GetUserNameA(name.data(), &size) != 0) account.name = name.data();
  return account;
}

std::optional<Account> accountOfUser(const std::string& _user) {
  Account own = ownAccount();
  return isSameName(own.name, _user) ? std::optional(own) : std::nullopt;
}

std::optional<Account> accountOfProcess(int _pid) {
  return static_cast<DWORD>(_pid) == ::GetCurrentProcessId() ? std::optional(ownAccount()) : std::nullopt;
}

Environment ownEnvironment() {
  Environment environment;
  char* const block = ::GetEnvironmentStringsA();
  if (block == nullptr) return environment;
  for (const char* variable = block; *variable != '\0'; variable += std::string(variable).size() + 1) {
    const std::string text = variable;
    // Those of the current folders begin with "=".
    const std::size_t separator = text.find('=', 1);
    if (separator != std::string::npos) environment.emplace(text.substr(0, separator), text.substr(separator + 1));
  }
  ::FreeEnvironmentStringsA(block);
  return environment;
}

std::optional<Environment> environmentOfProcess(int) { return std::nullopt; }

bool hasEnded(int) { return false; }

std::string fileSystemOfProcess(int) { return ""; }

bool baseFolder(platform::ShellFolder _folder, const Environment&, const std::string&, std::string& _path) {
  return platform::shellFolder(_folder, _path);
}

bool foldersFollowEnvironment() { return false; }

}  // namespace toolsystem
