// SPDX-License-Identifier: MIT
#include "platform/append_file.h"

#include <atomic>
#include <new>

#include "platform/fault.h"
#include "platform/win32/append_lock.h"
#include "platform/win32/last_error.h"
#include "platform/win32/line_ends.h"
#include "platform/win32/windows_api.h"

namespace platform {
namespace {

constexpr char separators[] = "\\/";
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Where the system notes the result of this thread's writes.
thread_local constinit OVERLAPPED* watched = nullptr;

constexpr ULONG_PTR statusPending = 0x103;
constexpr DWORD endOfFile = 0xFFFFFFFF;

/// How often the lock is asked for, a millisecond apart: a thread that was ended may hold it.
constexpr int maxTries = 1000;

struct OpenFile {
  HANDLE file = INVALID_HANDLE_VALUE;
  HANDLE queue = nullptr;
  /// Shared while a message is appended, exclusive while the file is reopened.
  SRWLOCK lock = SRWLOCK_INIT;
  /// Whether a thread asks for the exclusive lock, which threads that append without a break would never leave to it.
  std::atomic<bool> isAskedFor{false};
};

OpenFile& openFileOf(std::intptr_t _file) { return *reinterpret_cast<OpenFile*>(_file); }

HANDLE handleOf(std::intptr_t _file) { return openFileOf(_file).file; }

class SharedHold {
 public:
  explicit SharedHold(OpenFile& _file) : file_(_file) {
    for (int tries = 0; !isHeld_ && tries < maxTries; ++tries) {
      if (tries > 0) ::Sleep(1);
      isHeld_ = !file_.isAskedFor.load(std::memory_order_relaxed) && ::TryAcquireSRWLockShared(&file_.lock);
    }
  }
  ~SharedHold() {
    if (isHeld_) ::ReleaseSRWLockShared(&file_.lock);
  }
  SharedHold(const SharedHold&) = delete;
  SharedHold& operator=(const SharedHold&) = delete;

  bool isHeld() const { return isHeld_; }

 private:
  OpenFile& file_;
  bool isHeld_ = false;
};

bool lockExclusively(OpenFile& _file) {
  _file.isAskedFor.store(true, std::memory_order_relaxed);
  bool isLocked = ::TryAcquireSRWLockExclusive(&_file.lock);
  for (int tries = 1; !isLocked && tries < maxTries; ++tries) {
    ::Sleep(1);
    isLocked = ::TryAcquireSRWLockExclusive(&_file.lock);
  }
  _file.isAskedFor.store(false, std::memory_order_relaxed);
  return isLocked;
}

void close(OpenFile& _file) {
  if (_file.file != INVALID_HANDLE_VALUE && injectedFault(Call::closeFile) == noError) ::CloseHandle(_file.file);
  if (_file.queue != nullptr) ::CloseHandle(_file.queue);
  _file.file = INVALID_HANDLE_VALUE;
  _file.queue = nullptr;
}

std::string queueName(const AppendFile::Identity& _identity) {
  return "qmrk-append-" + std::to_string(_identity.volume) + "-" + std::to_string(_identity.file);
}

// Without the right to write data every write goes to the end of the file. Reading serves to look at the last byte, and
// the lock needs it.
HANDLE openForAppending(const std::string& _path, bool _truncate) {
  const DWORD access = FILE_APPEND_DATA | FILE_READ_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE;
  return ::CreateFileA(_path.c_str(), access, shareAll, nullptr, _truncate ? CREATE_ALWAYS : OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool makeFolder(const std::string& _folder) {
  return ::CreateDirectoryA(_folder.c_str(), nullptr) || lastErrorCode() == errorAlreadyExists;
}

// Creates the folder of a path with its missing parents; on failure the last error tells why.
bool createFolderOf(const std::string& _path) {
  const std::size_t nameBegin = _path.find_last_of(separators);
  const std::size_t end = nameBegin == std::string::npos ? nameBegin : _path.find_last_not_of(separators, nameBegin);
  if (end == std::string::npos) return false;
  const std::string folder = _path.substr(0, end + 1);
  if (makeFolder(folder)) return true;
  return lastErrorCode() == errorPathNotFound && createFolderOf(folder) && makeFolder(folder);
}

bool identityOf(HANDLE _file, AppendFile::Identity& _identity) {
  BY_HANDLE_FILE_INFORMATION information{};
  if (!::GetFileInformationByHandle(_file, &information)) return false;
  _identity.volume = information.dwVolumeSerialNumber;
  _identity.file = static_cast<std::uint64_t>(information.nFileIndexHigh) << 32 | information.nFileIndexLow;
  return true;
}

// Where a file that somebody removed keeps its name until its last handle is closed, nobody can open it by that name.
bool isRemoved(HANDLE _file) {
  FILE_STANDARD_INFO information{};
  return ::GetFileInformationByHandleEx(_file, FileStandardInfo, &information, sizeof information) &&
         information.DeletePending;
}

ErrorCode openAt(const std::string& _path, bool _truncate, OpenFile& _opened, AppendFile::Identity& _identity) {
  const ErrorCode fault = injectedFault(Call::openForAppending);
  if (fault != noError) return fault;
  HANDLE file = openForAppending(_path, _truncate);
  if (file == INVALID_HANDLE_VALUE && lastErrorCode() == errorPathNotFound && createFolderOf(_path)) {
    file = openForAppending(_path, _truncate);
  }
  if (file == INVALID_HANDLE_VALUE || !identityOf(file, _identity)) {
    const ErrorCode error = lastErrorCode();
    if (file != INVALID_HANDLE_VALUE) ::CloseHandle(file);
    return error;
  }
  _opened.file = file;
  _opened.queue = makeAppendQueue(queueName(_identity));
  return noError;
}

}  // namespace

std::unique_ptr<AppendFile> AppendFile::open(const std::string& _path, bool _truncate, ErrorCode& _error) {
  auto opened = std::make_unique<OpenFile>();
  Identity identity;
  const ErrorCode error = openAt(_path, _truncate, *opened, identity);
  if (error != noError) {
    _error = error;
    return nullptr;
  }
  return std::unique_ptr<AppendFile>(new AppendFile(reinterpret_cast<std::intptr_t>(opened.release()), identity));
}

// The former file is closed first: one that was removed keeps its name until nobody has it open.
ErrorCode AppendFile::reopen(const std::string& _path, bool _truncate) {
  OpenFile& opened = openFileOf(file_);
  if (!lockExclusively(opened)) return ERROR_SHARING_VIOLATION;
  close(opened);
  const ErrorCode error = openAt(_path, _truncate, opened, identity_);
  ::ReleaseSRWLockExclusive(&opened.lock);
  return error;
}

AppendFile::AppendFile(std::intptr_t _file, Identity _identity) : file_(_file), identity_(_identity) {}

AppendFile::~AppendFile() {
  const std::unique_ptr<OpenFile> opened(&openFileOf(file_));
  close(*opened);
}

AppendFile::Result AppendFile::append(const char* _data, std::size_t _size) {
  if (_size == 0) return {};
  const ErrorCode fault = injectedFault(Call::append);
  if (fault != noError) return {0, fault};
  const std::string bytes = withCarriageReturns({_data, _size});
  const SharedHold hold(openFileOf(file_));
  if (!hold.isHeld() || handleOf(file_) == INVALID_HANDLE_VALUE) return {0, errorInvalidHandle};
  const AppendLock lock(handleOf(file_), openFileOf(file_).queue);
  OVERLAPPED unwatched{};
  OVERLAPPED& place = watched != nullptr ? *watched : unwatched;
  place.Offset = endOfFile;
  place.OffsetHigh = endOfFile;
  DWORD written = 0;
  if (!::WriteFile(handleOf(file_), bytes.data(), static_cast<DWORD>(bytes.size()), &written, &place)) {
    return {0, lastErrorCode()};
  }
  injectedFault(Call::appended);
  if (written == bytes.size()) return {_size, noError};
  // A short write is not continued: another process may have appended since.
  return {sizeBeforeTranslation({_data, _size}, written), errorDiskFull};
}

bool AppendFile::endsInLineFeed() const {
  if (injectedFault(Call::read) != noError) return true;
  // What ends the file while a message is appended is not what ends it afterwards.
  const AppendLock lock(handleOf(file_), openFileOf(file_).queue);
  LARGE_INTEGER size{};
  if (!::GetFileSizeEx(handleOf(file_), &size) || size.QuadPart == 0) return true;
  OVERLAPPED position{};
  position.Offset = static_cast<DWORD>(size.QuadPart - 1);
  position.OffsetHigh = static_cast<DWORD>((size.QuadPart - 1) >> 32);
  char last = '\n';
  DWORD got = 0;
  return !::ReadFile(handleOf(file_), &last, 1, &got, &position) || got != 1 || last == '\n';
}

bool AppendFile::isStillAt(const std::string& _path) const {
  if (injectedFault(Call::statusQuery) != noError) return true;
  if (handleOf(file_) == INVALID_HANDLE_VALUE) return false;
  if (isRemoved(handleOf(file_))) return false;
  const HANDLE file = ::CreateFileA(_path.c_str(), FILE_READ_ATTRIBUTES, shareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    const ErrorCode error = lastErrorCode();
    return error != ERROR_FILE_NOT_FOUND && error != errorPathNotFound;
  }
  Identity identity;
  const bool same = !identityOf(file, identity) || identity == identity_;
  ::CloseHandle(file);
  return same;
}

static_assert(sizeof(OVERLAPPED) <= sizeof(std::uintptr_t[5]));

void AppendWatch::watchThisThread() { watched = std::launder(reinterpret_cast<OVERLAPPED*>(state_)); }

void AppendWatch::restart() { (new (state_) OVERLAPPED{})->Internal = statusPending; }

bool AppendWatch::hasAppended() const {
  const auto& place = *std::launder(reinterpret_cast<const volatile OVERLAPPED*>(state_));
  return place.Internal != statusPending && place.InternalHigh != 0;
}

}  // namespace platform
