// SPDX-License-Identifier: MIT
#include "platform/linux/event_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <mutex>
#include <set>

#include "platform/linux/blocked_signal.h"
#include "platform/linux/errno_code.h"
#include "platform/linux/event_folder.h"
#include "platform/linux/open_file.h"
#include "platform/linux/record_lock.h"

namespace platform {
namespace {

constexpr long usersByte = 0;
constexpr long gateByte = 1;
constexpr mode_t othersBits = 077;

// Every file of the process, for fork. Never destroyed: a thread may wait for an event while the process exits.
struct OpenFiles {
  std::mutex mutex;
  std::set<EventFile*> files;
};

OpenFiles& openFiles() {
  static OpenFiles& files = *new OpenFiles;
  return files;
}

bool isTrusted(int _file) {
  struct stat status {};
  if (::fstat(_file, &status) != 0) return false;
  if (S_ISREG(status.st_mode) && status.st_uid == ::geteuid() && (status.st_mode & othersBits) == 0) return true;
  errno = EACCES;
  return false;
}

// Takes the memory now: with a full /dev/shm the first write to the mapping would otherwise be a SIGBUS. A file size
// limit of the process sends a signal of its own, which must not reach the application.
bool reserve(int _file) {
  BlockedSignal blocked(SIGXFSZ);
  int error = 0;
  do {
    error = ::posix_fallocate(_file, 0, sizeof(std::uint32_t));
  } while (error == EINTR);
  if (error == EFBIG) blocked.consume();
  errno = error;
  return error == 0;
}

void removeKeepingErrno(const std::string& _path) {
  const int error = errno;
  ::unlink(_path.c_str());
  errno = error;
}

}  // namespace

EventFile::EventFile(const std::string& _name) : name_(_name), path_(eventFolderPath() + "/" + _name) {
  const std::lock_guard<std::mutex> lock(openFiles().mutex);
  openFiles().files.insert(this);
}

EventFile::~EventFile() {
  const std::lock_guard<std::mutex> lock(openFiles().mutex);
  openFiles().files.erase(this);
  if (file_.isOpen()) leave();
}

EventFile::Joined EventFile::join(const std::string& _name, Joining _joining) {
  Joined result;
  std::shared_ptr<EventFile> file(new EventFile(_name));
  Step step = Step::again;
  {
    const std::lock_guard<std::mutex> lock(openFiles().mutex);
    while (step == Step::again) {
      step = file->tryToJoin(_joining, result.existed);
    }
    if (step == Step::failed) {
      const bool isMissing = errno == ENOENT && _joining == Joining::openOnly;
      result.error = isMissing ? errorFileNotFound : errnoCode(errno);
      file->file_.reset();
    }
  }
  if (step == Step::joined) result.file = std::move(file);
  return result;
}

EventFile::Step EventFile::tryToJoin(Joining _joining, bool& _existed) {
  if (!open(_joining) || !waitForRecordLock(file_.get(), gateByte, RecordLock::exclusive)) return Step::failed;
  // The last user may have removed the file while this one was at the gate.
  if (!isInPlace()) return Step::again;
  _existed = !tryRecordLock(file_.get(), usersByte, RecordLock::exclusive);
  const Step step = _existed ? enterAsFurther() : enterAsFirst(_joining);
  if (step == Step::joined) tryRecordLock(file_.get(), gateByte, RecordLock::none);
  return step;
}

bool EventFile::open(Joining _joining) {
  const bool create = _joining == Joining::createOrOpen;
  const FileDescriptor folder = openEventFolder(create);
  if (!folder.isOpen()) return false;
  // O_NONBLOCK is for what may stand there instead of a file.
  const int flags = O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | (create ? O_CREAT : 0);
  file_ = FileDescriptor(aboveStandardStreams(::openat(folder.get(), name_.c_str(), flags, 0600)));
  if (!file_.isOpen() && errno == ELOOP) errno = EACCES;
  return file_.isOpen() && isTrusted(file_.get());
}

EventFile::Step EventFile::enterAsFirst(Joining _joining) {
  if (_joining == Joining::openOnly) {
    errno = ENOENT;
  } else if (reserve(file_.get()) && map()) {
    std::atomic_ref<std::uint32_t>(*word_).store(0);
    if (tryRecordLock(file_.get(), usersByte, RecordLock::shared)) return Step::joined;
  }
  removeKeepingErrno(path_);
  return Step::failed;
}

EventFile::Step EventFile::enterAsFurther() {
  // Nobody has the exclusive lock outside the gate, so this one cannot be refused.
  const bool isUser = tryRecordLock(file_.get(), usersByte, RecordLock::shared);
  return isUser && reserve(file_.get()) && map() ? Step::joined : Step::failed;
}

bool EventFile::map() {
  void* page = ::mmap(nullptr, sizeof(std::uint32_t), PROT_READ | PROT_WRITE, MAP_SHARED, file_.get(), 0);
  if (page == MAP_FAILED) return false;
  ::madvise(page, sizeof(std::uint32_t), MADV_DONTFORK);
  word_ = static_cast<std::uint32_t*>(page);
  return true;
}

void EventFile::leave() {
  ::munmap(word_, sizeof(std::uint32_t));
  if (waitForRecordLock(file_.get(), gateByte, RecordLock::exclusive) && isInPlace() &&
      tryRecordLock(file_.get(), usersByte, RecordLock::exclusive)) {
    ::unlink(path_.c_str());
  }
  // Closing is not enough while another process has a copy of the descriptor, for instance between vfork and exec.
  tryRecordLock(file_.get(), usersByte, RecordLock::none);
  tryRecordLock(file_.get(), gateByte, RecordLock::none);
  file_.reset();
}

bool EventFile::isInPlace() const {
  struct stat here {};
  struct stat there {};
  if (::fstat(file_.get(), &here) != 0) return true;
  if (::lstat(path_.c_str(), &there) != 0) return errno != ENOENT && errno != ENOTDIR;
  return here.st_dev == there.st_dev && here.st_ino == there.st_ino;
}

void EventFile::lockAll() { openFiles().mutex.lock(); }

void EventFile::unlockAll() { openFiles().mutex.unlock(); }

void EventFile::abandonAll() {
  for (EventFile* file : openFiles().files) {
    file->file_.reset();
    file->word_ = nullptr;
  }
}

}  // namespace platform
