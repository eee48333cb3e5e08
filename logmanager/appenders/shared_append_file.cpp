// SPDX-License-Identifier: MIT
#include "logmanager/appenders/shared_append_file.h"

#include <memory>
#include <utility>

#include "logmanager/threads/reader_slot.h"
#include "logmanager/threads/slot_pool.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {
namespace {

using platform::AppendFile;

/// A file that is gone from its path is to be made anew within a second.
constexpr std::int64_t CHECK_INTERVAL = 500;

SlotPool<ReaderSlot>& fileSlots() {
  static constinit SlotPool<ReaderSlot> pool;
  return pool;
}

/// Keeps the open file from being closed while the calling thread appends to it.
class HeldFile {
 public:
  HeldFile(ThreadState& _thread, const std::atomic<AppendFile*>& _file) : slot_(hold(_thread, _file, file_)) {}
  ~HeldFile() { slot_.leave(); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  /// Null while the file is made anew.
  AppendFile* file() const { return file_; }

 private:
  static ReaderSlot& hold(ThreadState& _thread, const std::atomic<AppendFile*>& _published, AppendFile*& _file) {
    if (_thread.usualFileSlot == nullptr || !_thread.usualFileSlot->tryHold(_published, _file)) {
      _thread.usualFileSlot = &fileSlots().hold(_published, _file);
    }
    return *_thread.usualFileSlot;
  }

  AppendFile* file_ = nullptr;
  ReaderSlot& slot_;
};

}  // namespace

SharedAppendFile::SharedAppendFile(const std::string& _path, bool _overwrite) : path_(_path), isToEmpty_(_overwrite) {}

SharedAppendFile::~SharedAppendFile() { delete file_.load(std::memory_order_relaxed); }

void SharedAppendFile::append(ThreadState& _thread, const std::string& _message, std::int64_t _now) {
  if (isCheckDue(_now)) check();
  if (needsCare_.load(std::memory_order_acquire)) {
    appendWithCare(_message);
    return;
  }
  if (!appendToOpenFile(_thread, _message)) appendWithCare(_message);
}

// false, and nothing is done, when no file is open.
bool SharedAppendFile::appendToOpenFile(ThreadState& _thread, const std::string& _message) {
  const HeldFile held(_thread, file_);
  if (held.file() == nullptr) return false;
  const AppendFile::Result result = held.file()->append(_message.data(), _message.size());
  if (result.error == platform::noError) return true;
  const std::lock_guard<std::mutex> lock(lock_);
  trouble_.noteResult(_message, result);
  needsCare_.store(true, std::memory_order_release);
  return true;
}

// The clock may be set back, and messages that were kept carry the time of their logging.
bool SharedAppendFile::isCheckDue(std::int64_t _now) {
  std::int64_t checkedAt = checkedAt_.load(std::memory_order_relaxed);
  if (_now >= checkedAt && _now - checkedAt < CHECK_INTERVAL) return false;
  return checkedAt_.compare_exchange_strong(checkedAt, _now, std::memory_order_relaxed);
}

void SharedAppendFile::check() {
  const std::lock_guard<std::mutex> lock(lock_);
  retired_.takeUnused(fileSlots());
  const AppendFile* const file = file_.load(std::memory_order_relaxed);
  if (file == nullptr || file->isStillAt(path_)) return;
  isGone_ = true;
  needsCare_.store(true, std::memory_order_release);
}

void SharedAppendFile::appendWithCare(const std::string& _message) {
  const std::lock_guard<std::mutex> lock(lock_);
  if (!openWhenGone()) return;
  AppendFile& file = *file_.load(std::memory_order_relaxed);
  // The piece may be another process's.
  if (trouble_.lost > 0 && !trouble_.isFragment) trouble_.isFragment = !file.endsInLineFeed();
  const std::string told = trouble_.text();
  const std::string text = told + _message;
  const AppendFile::Result result = file.append(text.data(), text.size());
  if (result.written >= told.size()) trouble_.lost = 0;
  trouble_.noteResult(text, result);
  if (trouble_.lost == 0) needsCare_.store(false, std::memory_order_release);
}

// false, and the message is counted as lost, when the file cannot be opened.
bool SharedAppendFile::openWhenGone() {
  if (!isGone_) return true;
  // First, as on Windows a file that was removed keeps its name until nobody has it open.
  retired_.makeRoom();
  retired_.add(std::unique_ptr<AppendFile>(file_.exchange(nullptr, std::memory_order_seq_cst)));
  retired_.takeUnused(fileSlots());
  platform::ErrorCode error = platform::noError;
  std::unique_ptr<AppendFile> file = AppendFile::open(path_, isToEmpty_, error);
  if (!file) {
    ++trouble_.lost;
    trouble_.error = error;
    return false;
  }
  isToEmpty_ = false;
  isGone_ = false;
  trouble_.isFragment = !file->endsInLineFeed();
  file_.store(file.release(), std::memory_order_seq_cst);
  return true;
}

std::string SharedAppendFile::Trouble::text() const {
  std::string text = isFragment ? "\n" : "";
  if (lost > 0) {
    text += std::to_string(lost) + (lost == 1 ? " message was" : " messages were") +
            " lost: this file could not be written, error " + std::to_string(error) + "\n";
  }
  return text;
}

// _text is text(), then a message.
void SharedAppendFile::Trouble::noteResult(const std::string& _text, const platform::AppendFile::Result& _result) {
  if (_result.error == platform::noError) {
    *this = Trouble();
    return;
  }
  if (_result.written > 0) isFragment = _text[_result.written - 1] != '\n';
  ++lost;
  error = _result.error;
}

}  // namespace boost::logging::detail
