// SPDX-License-Identifier: MIT
#include "tools/system/account.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <fstream>
#include <iterator>
#include <sstream>

#include "platform/linux/base_folder.h"
#include "tools/system/linux/secure_process.h"

namespace toolsystem {
namespace {

std::string processFolder(int _pid) { return "/proc/" + std::to_string(_pid); }

std::optional<Account> accountOf(const passwd& _entry) {
  Account account{_entry.pw_name, _entry.pw_uid, _entry.pw_gid, {}, _entry.pw_dir};
  int count = 64;
  std::vector<gid_t> groups(static_cast<std::size_t>(count));
  while (::getgrouplist(_entry.pw_name, _entry.pw_gid, groups.data(), &count) == -1) {
    groups.resize(static_cast<std::size_t>(count));
  }
  account.groups.assign(groups.begin(), groups.begin() + count);
  return account;
}

// Asks one of the two functions of the system, with room for as long an entry as there is.
template <typename Ask>
std::optional<Account> accountBy(Ask _ask) {
  std::vector<char> strings(1024);
  passwd entry{};
  passwd* found = nullptr;
  int error = ERANGE;
  while ((error = _ask(&entry, strings.data(), strings.size(), &found)) == ERANGE) {
    strings.resize(strings.size() * 2);
  }
  if (error != 0 || found == nullptr) return std::nullopt;
  return accountOf(*found);
}

std::optional<Account> accountOfId(uid_t _uid) {
  return accountBy([_uid](passwd* _entry, char* _strings, std::size_t _size, passwd** _found) {
    return ::getpwuid_r(_uid, _entry, _strings, _size, _found);
  });
}

Account namedAccount(uid_t _uid, gid_t _gid, std::vector<std::uint32_t> _groups) {
  Account account = accountOfId(_uid).value_or(Account{std::to_string(_uid), _uid, _gid, {}, ""});
  account.gid = _gid;
  account.groups = std::move(_groups);
  return account;
}

// The numbers behind a name in /proc/PID/status.
std::vector<std::uint32_t> statusNumbers(const std::string& _status, const std::string& _name) {
  const std::size_t begin = _status.find("\n" + _name + ":");
  if (begin == std::string::npos) return {};
  const std::size_t text = begin + _name.size() + 2;
  std::istringstream line(_status.substr(text, _status.find('\n', text) - text));
  return {std::istream_iterator<std::uint32_t>(line), {}};
}

std::optional<std::string> contentOf(const std::string& _path) {
  std::ifstream file(_path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

Environment environmentOf(const std::string& _block) {
  Environment environment;
  for (std::size_t begin = 0; begin < _block.size();) {
    const std::size_t end = std::min(_block.find('\0', begin), _block.size());
    const std::string variable = _block.substr(begin, end - begin);
    const std::size_t separator = variable.find('=');
    // The first of two of one name counts for getenv.
    if (separator != std::string::npos) {
      environment.emplace(variable.substr(0, separator), variable.substr(separator + 1));
    }
    begin = end + 1;
  }
  return environment;
}

bool isSameFolder(const std::string& _one, const std::string& _other) {
  struct stat one {};
  struct stat other {};
  return ::stat(_one.c_str(), &one) == 0 && ::stat(_other.c_str(), &other) == 0 && one.st_dev == other.st_dev &&
         one.st_ino == other.st_ino;
}

bool hasSameMounts(int _pid) {
  struct stat own {};
  struct stat other {};
  return ::stat("/proc/self/ns/mnt", &own) == 0 && ::stat((processFolder(_pid) + "/ns/mnt").c_str(), &other) == 0 &&
         own.st_ino == other.st_ino;
}

}  // namespace

Account ownAccount() {
  std::vector<gid_t> groups(static_cast<std::size_t>(::getgroups(0, nullptr)));
  if (!groups.empty())
    groups.resize(static_cast<std::size_t>(::getgroups(static_cast<int>(groups.size()), groups.data())));
  return namedAccount(::geteuid(), ::getegid(), {groups.begin(), groups.end()});
}

std::optional<Account> accountOfUser(const std::string& _user) {
  std::optional<Account> account =
      accountBy([&_user](passwd* _entry, char* _strings, std::size_t _size, passwd** _found) {
        return ::getpwnam_r(_user.c_str(), _entry, _strings, _size, _found);
      });
  if (account) return account;
  uid_t uid = 0;
  const char* const end = _user.data() + _user.size();
  const auto read = std::from_chars(_user.data(), end, uid);
  if (_user.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  // One without a password entry may run programs all the same, in containers above all.
  return accountOfId(uid).value_or(Account{std::to_string(uid), uid, uid, {}, ""});
}

std::optional<Account> accountOfProcess(int _pid) {
  const std::optional<std::string> status = contentOf(processFolder(_pid) + "/status");
  if (!status) return std::nullopt;
  // Real, effective, saved, file system.
  const std::vector<std::uint32_t> users = statusNumbers(*status, "Uid");
  const std::vector<std::uint32_t> groups = statusNumbers(*status, "Gid");
  if (users.size() < 2 || groups.size() < 2) return std::nullopt;
  return namedAccount(users[1], groups[1], statusNumbers(*status, "Groups"));
}

Environment ownEnvironment() {
  Environment environment;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    const std::size_t separator = text.find('=');
    if (separator != std::string::npos) environment.emplace(text.substr(0, separator), text.substr(separator + 1));
  }
  return environment;
}

std::optional<Environment> environmentOfProcess(int _pid) {
  const std::optional<std::string> block = contentOf(processFolder(_pid) + "/environ");
  if (!block) return std::nullopt;
  Environment environment = environmentOf(*block);
  // What the library asks secure_getenv for is not set there.
  if (isSecureProcess(_pid)) {
    for (const char* const name :
         {"QMRK_APPDATA", "QMRK_COMMON_PROGRAM_FILES", "QMRK_COMMON_APPDATA", "XDG_DATA_HOME", "HOME"})
      environment.erase(name);
  }
  return environment;
}

bool hasEnded(int _pid) {
  // The first thing that a process gives back is its memory.
  const std::optional<std::string> status = contentOf(processFolder(_pid) + "/status");
  return !status || status->find("\nVmSize:") == std::string::npos;
}

std::string fileSystemOfProcess(int _pid) {
  const std::string root = processFolder(_pid) + "/root";
  struct stat status {};
  if (::stat((root + "/").c_str(), &status) != 0) return "";
  return hasSameMounts(_pid) && isSameFolder(root + "/", "/") ? "" : root;
}

bool baseFolder(platform::ShellFolder _folder, const Environment& _environment, const std::string& _home,
                std::string& _path) {
  const auto variable = [&_environment](const char* _name) {
    const auto found = _environment.find(_name);
    return found == _environment.end() ? nullptr : found->second.c_str();
  };
  const auto home = [&_home](std::string& _found) {
    _found = _home;
    return !_home.empty();
  };
  return platform::baseFolder(_folder, {variable, home}, _path);
}

bool foldersFollowEnvironment() { return true; }

}  // namespace toolsystem
