// SPDX-License-Identifier: MIT
#include "platform/linux/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <thread>

#include "platform/fault.h"
#include "platform/linux/deadline.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/link_target.h"
#include "platform/native_path.h"

namespace platform {
namespace {

constexpr mode_t configurationMode = 0644;
constexpr mode_t logMode = 0640;
constexpr std::uint32_t longestLeaseWait = 100;
constexpr std::chrono::milliseconds betweenTries{1};

int openUninterrupted(const std::string& _nativePath, int _flags, mode_t _mode) {
  int file = -1;
  do {
    file = ::open(_nativePath.c_str(), _flags, _mode);
  } while (file == -1 && errno == EINTR);
  return file;
}

// Another process can have a lease on the file, as file servers conventionally do. The first try makes the system ask
// for it back.
int openDespiteLease(const std::string& _nativePath, int _flags, mode_t _mode) {
  int file = openUninterrupted(_nativePath, _flags, _mode);
  if (file != -1 || errno != EWOULDBLOCK) return file;
  const Deadline deadline(longestLeaseWait);
  while (file == -1 && errno == EWOULDBLOCK && !deadline.hasPassed()) {
    static_cast<void>(injectedFault(Call::awaitLease));
    std::this_thread::sleep_for(betweenTries);
    file = openUninterrupted(_nativePath, _flags, _mode);
  }
  return file;
}

// A link, unlike a file, leads others wherever its maker wants: to files of the user that the maker may not write.
int openLog(const std::string& _nativePath, int _flags) {
  const int file = openDespiteLease(_nativePath, _flags | O_NOFOLLOW, logMode);
  if (file != -1 || errno != ELOOP) return file;
  const std::string target = targetOfTrustedLink(_nativePath);
  return target.empty() ? -1 : openDespiteLease(target, _flags | O_NOFOLLOW, logMode);
}

bool isRegular(int _file) {
  struct stat status {};
  if (::fstat(_file, &status) != 0) return false;
  errno = S_ISDIR(status.st_mode) ? EISDIR : EACCES;
  return S_ISREG(status.st_mode);
}

}  // namespace

int aboveStandardStreams(int _file) {
  if (_file == -1 || _file > STDERR_FILENO) return _file;
  const int moved = ::fcntl(_file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int error = errno;
  closeDescriptor(_file);
  errno = error;
  return moved;
}

int openFile(const std::string& _path, int _flags, FileRole _role) {
  const std::string path = nativePath(_path);
  const int flags = _flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  FileDescriptor file(_role == FileRole::log ? openLog(path, flags) : openDespiteLease(path, flags, configurationMode));
  if (!file.isOpen() || !isRegular(file.get())) return -1;
  return aboveStandardStreams(file.release());
}

}  // namespace platform
