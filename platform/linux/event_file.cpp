// SPDX-License-Identifier: MIT
#include "platform/linux/event_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <mutex>
#include <set>
#include <thread>

#include "platform/cancellation.h"
#include "platform/fault.h"
#include "platform/linux/blocked_signal.h"
#include "platform/linux/deadline.h"
#include "platform/linux/errno_code.h"
#include "platform/linux/event_folder.h"
#include "platform/linux/open_file.h"
#include "platform/linux/record_lock.h"

namespace platform {
namespace {

constexpr long usersByte = 0;
constexpr long gateByte = 1;
constexpr mode_t othersBits = 077;
constexpr mode_t ownerBits = 0600;
constexpr std::uint32_t longestGateWait = 100;
constexpr std::chrono::microseconds betweenTries{200};
// How often the one beside the gate tries to share the event, and how often an attempt to join begins again: somebody
// else must have removed the file or the folder each time.
constexpr int mostSharingTries = 10;
constexpr int mostAttempts = 1000;

// Every file of the process, for fork. Never destroyed: a thread may wait for an event while the process exits.
struct OpenFiles {
  std::mutex mutex;
  std::set<EventFile*> files;
};

OpenFiles& openFiles() {
  static OpenFiles& files = *new OpenFiles;
  return files;
}

bool isOwn(const struct stat& _status, uid_t _owner) {
  return S_ISREG(_status.st_mode) && _status.st_uid == _owner && (_status.st_mode & othersBits) == 0;
}

bool isTrusted(int _file, const struct stat& _status, uid_t _owner) {
  if (!isOwn(_status, _owner)) {
    errno = EACCES;
    return false;
  }
  // The umask may have taken bits away.
  return (_status.st_mode & ownerBits) == ownerBits || ::fchmod(_file, ownerBits) == 0;
}

// Opens a file for its owner whose creator has not come to do so yet, or was killed before.
bool isMadeAccessible(int _folder, const char* _name, uid_t _owner) {
  struct stat status {};
  return ::fstatat(_folder, _name, &status, AT_SYMLINK_NOFOLLOW) == 0 && isOwn(status, _owner) &&
         (status.st_mode & ownerBits) != ownerBits && ::fchmodat(_folder, _name, ownerBits, 0) == 0;
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

// Gives others of the process the lock for a moment.
void pause(std::unique_lock<std::mutex>& _lock) {
  _lock.unlock();
  static_cast<void>(injectedFault(Call::awaitEventGate));
  std::this_thread::sleep_for(betweenTries);
  _lock.lock();
}

}  // namespace

EventFile::EventFile(const std::string& _name, const EventFolder& _folder)
    : name_(_name), folder_(_folder), path_(_folder.path + "/" + _name) {
  const std::lock_guard<std::mutex> lock(openFiles().mutex);
  openFiles().files.insert(this);
}

EventFile::~EventFile() {
  // To pass the gate can take a pause, at which a thread can be cancelled, which a destructor cannot be.
  const CancellationDelay delay;
  std::unique_lock<std::mutex> lock(openFiles().mutex);
  if (word_ != nullptr) ::munmap(word_, sizeof(std::uint32_t));
  if (isStillOpen()) leave(lock);
  closeFile();
  openFiles().files.erase(this);
}

EventFile::Joined EventFile::join(const std::string& _name, Joining _joining, const EventFolder& _folder) {
  Joined result;
  std::shared_ptr<EventFile> file(new EventFile(_name, _folder));
  Step step = Step::again;
  for (int attempt = 0; step == Step::again && attempt < mostAttempts; ++attempt) {
    step = file->tryToJoin(_joining, result.existed);
  }
  if (step == Step::joined) {
    result.file = std::move(file);
    return result;
  }
  const bool isMissing = errno == ENOENT && _joining == Joining::openOnly;
  result.error = isMissing ? errorFileNotFound : errnoCode(errno);
  const std::lock_guard<std::mutex> lock(openFiles().mutex);
  file->closeFile();
  return result;
}

EventFile::Step EventFile::tryToJoin(Joining _joining, bool& _existed) {
  std::unique_lock<std::mutex> lock(openFiles().mutex);
  const Step opened = open(_joining);
  if (opened != Step::joined) return opened;
  const bool isInGate = passGate(lock);
  // The last user may have removed the file while this one was at the gate.
  if (!isAtPath()) {
    errno = ENOENT;
    return Step::again;
  }
  const Step step = isInGate ? enter(_joining, _existed) : enterBesideGate(lock, _joining, _existed);
  if (step == Step::joined && isInGate) tryRecordLock(file_.get(), gateByte, RecordLock::none);
  return step;
}

// What is "joined" here is the file, not yet the event.
EventFile::Step EventFile::open(Joining _joining) {
  const bool create = _joining == Joining::createOrOpen;
  const Step missing = create ? Step::again : Step::failed;
  const FileDescriptor folder = openEventFolder(folder_, create);
  if (!folder.isOpen()) return errno == ENOENT ? missing : Step::failed;
  if (injectedFault(Call::openEventFile) != noError) {
    errno = EACCES;
    return Step::failed;
  }
  // O_NONBLOCK is for what may stand there instead of a file.
  const int flags = O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | (create ? O_CREAT : 0);
  closeFile();
  file_ = FileDescriptor(aboveStandardStreams(::openat(folder.get(), name_.c_str(), flags, ownerBits)));
  if (file_.isOpen()) {
    struct stat status {};
    if (::fstat(file_.get(), &status) != 0) return Step::failed;
    volume_ = status.st_dev;
    inode_ = status.st_ino;
    takeNumber();
    return isTrusted(file_.get(), status, folder_.owner) ? Step::joined : Step::failed;
  }
  if (errno == ENOENT) return missing;
  if (errno == ELOOP) errno = EACCES;
  if (errno != EACCES) return Step::failed;
  // What belongs to others is left alone: they can put a link in its place.
  const bool isAccessible =
      folder_.owner == ::geteuid() && isMadeAccessible(folder.get(), name_.c_str(), folder_.owner);
  errno = EACCES;
  return isAccessible ? Step::again : Step::failed;
}

// A fork meanwhile is no harm: the child closes the file.
bool EventFile::passGate(std::unique_lock<std::mutex>& _lock) {
  const Deadline deadline(longestGateWait);
  while (!tryRecordLock(file_.get(), gateByte, RecordLock::exclusive)) {
    if (deadline.hasPassed()) return false;
    pause(_lock);
  }
  return true;
}

EventFile::Step EventFile::enter(Joining _joining, bool& _existed) {
  _existed = !tryRecordLock(file_.get(), usersByte, RecordLock::exclusive);
  if (_existed) return becomeFurther();
  if (_joining == Joining::createOrOpen) {
    const Step step = becomeFirst();
    if (step == Step::joined) return step;
  } else {
    errno = ENOENT;
  }
  const int error = errno;
  if (isAtPath()) ::unlink(path_.c_str());
  errno = error;
  return Step::failed;
}

EventFile::Step EventFile::enterBesideGate(std::unique_lock<std::mutex>& _lock, Joining _joining, bool& _existed) {
  bool isShared = tryRecordLock(file_.get(), usersByte, RecordLock::shared);
  for (int tries = 1; !isShared && tries < mostSharingTries; ++tries) {
    pause(_lock);
    isShared = tryRecordLock(file_.get(), usersByte, RecordLock::shared);
  }
  // A shared lock becomes an exclusive one exactly when nobody else has any.
  _existed = isShared && !tryRecordLock(file_.get(), usersByte, RecordLock::exclusive);
  if (_existed) return becomeFurther();
  errno = ENOENT;
  if (_joining == Joining::openOnly) return Step::failed;
  if (isShared) return becomeFirst();
  // The one in the gate stands still while it makes or removes the event, which therefore has no other user. Another
  // one beside the gate may have begun the event anew meanwhile.
  if (isAtPath()) ::unlink(path_.c_str());
  return Step::again;
}

EventFile::Step EventFile::becomeFirst() {
  if (!reserve(file_.get()) || !map()) return Step::failed;
  std::atomic_ref<std::uint32_t>(*word_).store(0);
  return tryRecordLock(file_.get(), usersByte, RecordLock::shared) ? Step::joined : Step::failed;
}

EventFile::Step EventFile::becomeFurther() {
  // Refused only while somebody beside the gate makes the event.
  if (!tryRecordLock(file_.get(), usersByte, RecordLock::shared)) return Step::again;
  return reserve(file_.get()) && map() ? Step::joined : Step::failed;
}

bool EventFile::map() {
  void* page = ::mmap(nullptr, sizeof(std::uint32_t), PROT_READ | PROT_WRITE, MAP_SHARED, file_.get(), 0);
  if (page == MAP_FAILED) return false;
  ::madvise(page, sizeof(std::uint32_t), MADV_DONTFORK);
  word_ = static_cast<std::uint32_t*>(page);
  return true;
}

void EventFile::leave(std::unique_lock<std::mutex>& _lock) {
  // A file that stays because the gate is blocked is begun again by the next user.
  if (passGate(_lock) && tryRecordLock(file_.get(), usersByte, RecordLock::exclusive) && isAtPath()) {
    ::unlink(path_.c_str());
  }
  // Closing is not enough while another process has a copy of the descriptor, for instance between vfork and exec.
  tryRecordLock(file_.get(), usersByte, RecordLock::none);
  tryRecordLock(file_.get(), gateByte, RecordLock::none);
}

bool EventFile::isInPlace() const {
  const std::lock_guard<std::mutex> lock(openFiles().mutex);
  return isAtPath();
}

bool EventFile::isAtPath() const {
  struct stat there {};
  if (!isStillOpen()) return false;
  if (::lstat(path_.c_str(), &there) != 0) return errno != ENOENT && errno != ENOTDIR;
  return there.st_dev == volume_ && there.st_ino == inode_;
}

// The application may have closed the number, and have a file of its own under it.
bool EventFile::isStillOpen() const {
  struct stat here {};
  if (!file_.isOpen()) return false;
  if (::fstat(file_.get(), &here) != 0) return errno != EBADF;
  return here.st_dev == volume_ && here.st_ino == inode_;
}

// Whoever had the number before does not have it any more: the application has closed it. That one would take this file
// for its own, which is the same if it is of the same event, and close it.
void EventFile::takeNumber() {
  for (EventFile* file : openFiles().files) {
    if (file != this && file->file_.get() == file_.get()) static_cast<void>(file->file_.release());
  }
}

void EventFile::closeFile() {
  const int error = errno;
  if (isStillOpen()) {
    file_.reset();
  } else {
    static_cast<void>(file_.release());
  }
  errno = error;
}

void EventFile::prepareForForks() { openFiles(); }

void EventFile::lockAll() { openFiles().mutex.lock(); }

void EventFile::unlockAll() { openFiles().mutex.unlock(); }

void EventFile::abandonAll() {
  for (EventFile* file : openFiles().files) {
    file->closeFile();
    file->word_ = nullptr;
  }
}

}  // namespace platform
