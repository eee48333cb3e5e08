// SPDX-License-Identifier: MIT
#include "tools/system/path_rights.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace toolsystem {
namespace {

constexpr char existsBit = 1;
constexpr char readBit = 2;
constexpr char writeBit = 4;

// Files are created in a folder only by who may enter it too.
int modeOfWriting(const struct stat& _status) { return S_ISDIR(_status.st_mode) ? W_OK | X_OK : W_OK; }

char askSystem(const char* _path) {
  struct stat status {};
  if (::stat(_path, &status) != 0) return 0;
  const auto may = [_path](int _mode) { return ::faccessat(AT_FDCWD, _path, _mode, AT_EACCESS) == 0; };
  return static_cast<char>(existsBit | (may(R_OK) ? readBit : 0) | (may(modeOfWriting(status)) ? writeBit : 0));
}

PathRights rightsOf(char _bits) { return {(_bits & existsBit) != 0, (_bits & readBit) != 0, (_bits & writeBit) != 0}; }

bool become(const Account& _account, const std::string& _root) {
  if (!_root.empty() && (::chroot(_root.c_str()) != 0 || ::chdir("/") != 0)) return false;
  return ::setgroups(_account.groups.size(), _account.groups.data()) == 0 && ::setgid(_account.gid) == 0 &&
         ::setuid(_account.uid) == 0;
}

// Asks in a child process that has become the account; empty when that fails.
std::vector<PathRights> askAs(const std::vector<std::string>& _paths, const Account& _account,
                              const std::string& _root) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return {};
  const pid_t child = ::fork();
  if (child == 0) {
    const bool isReady = become(_account, _root);
    for (std::size_t i = 0; isReady && i < _paths.size(); ++i) {
      const char bits = askSystem(_paths[i].c_str());
      if (::write(ends[1], &bits, 1) != 1) break;
    }
    ::_exit(0);
  }
  ::close(ends[1]);
  std::vector<PathRights> rights;
  char bits = 0;
  while (child > 0 && ::read(ends[0], &bits, 1) == 1)
    rights.push_back(rightsOf(bits));
  ::close(ends[0]);
  if (child > 0) ::waitpid(child, nullptr, 0);
  return rights.size() == _paths.size() ? rights : std::vector<PathRights>{};
}

// The three bits that hold for the account.
unsigned int modeBits(const struct stat& _status, const Account& _account) {
  if (_account.uid == _status.st_uid) return (_status.st_mode >> 6U) & 7U;
  const bool isInGroup = _account.gid == _status.st_gid || std::find(_account.groups.begin(), _account.groups.end(),
                                                                     _status.st_gid) != _account.groups.end();
  return (isInGroup ? _status.st_mode >> 3U : _status.st_mode) & 7U;
}

PathRights byModeBits(const std::string& _path, const Account& _account) {
  struct stat status {};
  for (std::size_t end = _path.find('/', 1); end != std::string::npos; end = _path.find('/', end + 1)) {
    if (::stat(_path.substr(0, end).c_str(), &status) != 0) return {};
    if (_account.uid != 0 && (modeBits(status, _account) & 1U) == 0) return {};
  }
  if (::stat(_path.c_str(), &status) != 0) return {};
  const unsigned int bits = modeBits(status, _account);
  const auto writing = static_cast<unsigned int>(modeOfWriting(status));
  return {true, _account.uid == 0 || (bits & 4U) != 0, _account.uid == 0 || (bits & writing) == writing};
}

bool isRunningUser(const Account& _account) { return _account.uid == ::geteuid() && _account.gid == ::getegid(); }

}  // namespace

std::vector<PathRights> rightsOn(const std::vector<std::string>& _paths, const Account& _account,
                                 const std::string& _root) {
  std::vector<PathRights> rights;
  if (::geteuid() == 0 && (!isRunningUser(_account) || !_root.empty())) rights = askAs(_paths, _account, _root);
  if (rights.size() == _paths.size()) return rights;
  const auto ask = [&](const std::string& _path) {
    const std::string path = _root + _path;
    return isRunningUser(_account) ? rightsOf(askSystem(path.c_str())) : byModeBits(path, _account);
  };
  std::transform(_paths.begin(), _paths.end(), std::back_inserter(rights), ask);
  return rights;
}

}  // namespace toolsystem
