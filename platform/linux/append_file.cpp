// SPDX-License-Identifier: MIT
#include "platform/append_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/fault.h"
#include "platform/linux/errno_code.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/file_write.h"
#include "platform/linux/open_file.h"
#include "platform/native_path.h"

namespace platform {
namespace {

constexpr mode_t logFolderMode = 0750;

// Where others append without a break, the file may never stand still for one who looks at it.
constexpr int maxEndChecks = 50;
constexpr std::chrono::milliseconds betweenEndChecks{1};

AppendFile::Identity identityOf(const struct stat& _status) {
  return {static_cast<std::uint64_t>(_status.st_dev), static_cast<std::uint64_t>(_status.st_ino)};
}

// For each number but the highest, how many logs have had it.
constinit std::array<std::atomic<std::uint32_t>, 1024> usesOfNumbers{};

std::uint32_t usesOf(int _number) {
  const auto number = static_cast<std::size_t>(_number);
  return number < usesOfNumbers.size() ? usesOfNumbers[number].load(std::memory_order_relaxed) : 0;
}

std::uint32_t countUse(int _number) {
  const auto number = static_cast<std::size_t>(_number);
  return number < usesOfNumbers.size() ? usesOfNumbers[number].fetch_add(1, std::memory_order_relaxed) + 1 : 0;
}

// The application may have closed the number, and have a file of its own under it, or another log, even of the same
// file.
bool leadsTo(int _number, std::uint32_t _uses, const AppendFile::Identity& _identity) {
  if (usesOf(_number) != _uses) return false;
  struct stat status {};
  return ::fstat(_number, &status) == 0 ? identityOf(status) == _identity : errno != EBADF;
}

// Reading serves only to look at the last byte, so a file that may only be written is opened all the same.
int openForAppending(const std::string& _path, bool _truncate) {
  const int flags = O_APPEND | O_CREAT | (_truncate ? O_TRUNC : 0);
  const int file = openFile(_path, O_RDWR | flags, FileRole::log);
  return file == -1 && errno == EACCES ? openFile(_path, O_WRONLY | flags, FileRole::log) : file;
}

// Creates the folder of a path with its missing parents.
// @return 0 when the folder exists now, else the errno.
int createFolderOf(const std::string& _path) {
  const std::size_t nameBegin = _path.find_last_of('/');
  const std::size_t folderEnd = nameBegin == std::string::npos ? nameBegin : _path.find_last_not_of('/', nameBegin);
  if (folderEnd == std::string::npos) return ENOENT;
  const std::string folder = _path.substr(0, folderEnd + 1);
  if (::mkdir(folder.c_str(), logFolderMode) == 0 || errno == EEXIST) return 0;
  if (errno != ENOENT) return errno;
  const int error = createFolderOf(folder);
  if (error != 0) return error;
  return ::mkdir(folder.c_str(), logFolderMode) == 0 || errno == EEXIST ? 0 : errno;
}

struct OpenedFile {
  FileDescriptor file;
  AppendFile::Identity identity;
  ErrorCode error = noError;
};

OpenedFile openAt(const std::string& _path, bool _truncate) {
  OpenedFile opened;
  opened.error = injectedFault(Call::openForAppending);
  if (opened.error != noError) return opened;
  opened.file = FileDescriptor(openForAppending(_path, _truncate));
  if (!opened.file.isOpen() && errno == ENOENT) {
    errno = createFolderOf(nativePath(_path));
    if (errno == 0) opened.file = FileDescriptor(openForAppending(_path, _truncate));
  }
  struct stat status {};
  if (!opened.file.isOpen() || ::fstat(opened.file.get(), &status) != 0) {
    opened.error = errnoCode(errno);
    return opened;
  }
  opened.identity = identityOf(status);
  refreshFileSizeLimit();
  return opened;
}

}  // namespace

std::unique_ptr<AppendFile> AppendFile::open(const std::string& _path, bool _truncate, ErrorCode& _error) {
  OpenedFile opened = openAt(_path, _truncate);
  if (opened.error != noError) {
    _error = opened.error;
    return nullptr;
  }
  auto file = std::unique_ptr<AppendFile>(new AppendFile(opened.file.get(), opened.identity));
  file->numberUses_ = countUse(opened.file.release());
  return file;
}

// Other threads go on writing to the number, which leads to the new file from one moment to the next. One that is the
// application's by now is left to it.
ErrorCode AppendFile::reopen(const std::string& _path, bool _truncate) {
  OpenedFile opened = openAt(_path, _truncate);
  if (opened.error != noError) return opened.error;
  const auto file = static_cast<int>(file_.load(std::memory_order_relaxed));
  if (opened.file.get() == file || !leadsTo(file, numberUses_, identity_)) {
    numberUses_ = countUse(opened.file.get());
    file_.store(opened.file.release(), std::memory_order_relaxed);
  } else {
    int moved = -1;
    do {
      moved = ::dup3(opened.file.get(), file, O_CLOEXEC);
    } while (moved == -1 && (errno == EINTR || errno == EBUSY));
    if (moved == -1) return errnoCode(errno);
  }
  identity_ = opened.identity;
  return noError;
}

AppendFile::AppendFile(std::intptr_t _file, Identity _identity) : file_(_file), identity_(_identity) {}

AppendFile::~AppendFile() {
  const auto file = static_cast<int>(file_.load(std::memory_order_relaxed));
  if (injectedFault(Call::closeFile) == noError && leadsTo(file, numberUses_, identity_)) closeDescriptor(file);
}

AppendFile::Result AppendFile::append(const char* _data, std::size_t _size) {
  if (_size == 0) return {};
  const ErrorCode fault = injectedFault(Call::append);
  if (fault != noError) return {0, fault};
  const ssize_t written = writeToFile(static_cast<int>(file_.load(std::memory_order_relaxed)), _data, _size);
  if (written == -1) return {0, errnoCode(errno)};
  const auto size = static_cast<std::size_t>(written);
  // A short write has no errno. It is not continued: another process may have appended since.
  return {size, size == _size ? noError : errorDiskFull};
}

bool AppendFile::endsInLineFeed() const {
  if (injectedFault(Call::read) != noError) return true;
  const auto file = static_cast<int>(file_.load(std::memory_order_relaxed));
  off_t formerSize = -1;
  for (int look = 0; look < maxEndChecks; ++look) {
    struct stat status {};
    if (::fstat(file, &status) != 0 || status.st_size == 0) return true;
    char last = '\n';
    if (::pread(file, &last, 1, status.st_size - 1) != 1 || last == '\n') return true;
    if (status.st_size == formerSize) return false;
    // A file grows page by page while a message is appended, so this may be the inside of one. To write nothing waits
    // for the write that is under way, on most file systems; only what has not grown after it is a piece that somebody
    // left.
    formerSize = status.st_size;
    [[maybe_unused]] const ssize_t nothing = ::write(file, &last, 0);
    std::this_thread::sleep_for(betweenEndChecks);
  }
  return true;
}

bool AppendFile::isStillAt(const std::string& _path) const {
  if (injectedFault(Call::statusQuery) != noError) return true;
  refreshFileSizeLimit();
  if (!leadsTo(static_cast<int>(file_.load(std::memory_order_relaxed)), numberUses_, identity_)) return false;
  struct stat status {};
  if (::stat(nativePath(_path).c_str(), &status) == 0) return identityOf(status) == identity_;
  return errno != ENOENT && errno != ENOTDIR;
}

void AppendWatch::watchThisThread() {}

void AppendWatch::restart() { state_[0] = 0; }

bool AppendWatch::hasAppended() const { return state_[0] != 0; }

}  // namespace platform
