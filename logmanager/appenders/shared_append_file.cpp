// SPDX-License-Identifier: MIT
#include "logmanager/appenders/shared_append_file.h"

#include <algorithm>
#include <utility>

#include "logmanager/appenders/failure_report.h"
#include "logmanager/appenders/file_notes.h"
#include "logmanager/threads/thread_state.h"
#include "platform/cancellation.h"

namespace boost::logging {
namespace detail {
namespace {

using platform::AppendFile;

/// A file that is gone from its path is to be recreated within a second.
constexpr std::int64_t checkInterval = 500;

}  // namespace

class SharedAppendFile::Locked {
 public:
  explicit Locked(SharedAppendFile& _file) : file_(_file) {
    if (!file_.lock_.lock()) file_.restartInChild();
  }
  ~Locked() { file_.lock_.unlock(); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  SharedAppendFile& file_;
  platform::CancellationDelay delay_;
};

SharedAppendFile::SharedAppendFile(const std::string& _path, bool _overwrite) : path_(_path), emptied_(_overwrite) {}

SharedAppendFile::~SharedAppendFile() {
  if (trouble_.isFailing()) leaveFailing(path_);
}

SharedAppendFile* SharedAppendFile::of(const appender& _appender) {
  const auto* const toFile = _appender.target<write_to_file>();
  return toFile != nullptr ? toFile->file_.get() : nullptr;
}

std::uint64_t SharedAppendFile::Messages::countBeyond(std::size_t _size) const {
  return static_cast<std::uint64_t>(ends.end() - std::ranges::upper_bound(ends, _size));
}

void SharedAppendFile::append(const Messages& _messages, std::int64_t _now) {
  if (isCheckDue(_now)) check();
  if (needsRepair_.load(std::memory_order_acquire)) {
    repairAndAppend(_messages);
    return;
  }
  const AppendFile::Result result = file_->append(_messages.text.data(), _messages.text.size());
  if (result.error != platform::noError) noteFailure(_messages, result);
}

// The clock may be set back, and messages that were kept carry the time of their logging.
bool SharedAppendFile::isCheckDue(std::int64_t _now) {
  std::int64_t checkedAt = checkedAt_.load(std::memory_order_relaxed);
  if (_now >= checkedAt && _now - checkedAt < checkInterval) return false;
  return checkedAt_.compare_exchange_strong(checkedAt, _now, std::memory_order_relaxed);
}

void SharedAppendFile::check() {
  const Locked locked(*this);
  if (!file_) return;
  // The one that this one has replaced may end only after this one has opened the file.
  if (takeOverFailing(path_)) trouble_.hasFailedBefore = true;
  if (!file_->isStillAt(path_)) isGone_ = true;
  if (isGone_ || trouble_.isFailing()) needsRepair_.store(true, std::memory_order_release);
}

void SharedAppendFile::noteFailure(const Messages& _messages, const AppendFile::Result& _result) {
  std::uint64_t lost = 0;
  {
    const Locked locked(*this);
    lost = trouble_.noteResult(0, _messages, _result);
    needsRepair_.store(true, std::memory_order_release);
  }
  reportLoss(path_, lost, _result.error);
  noteLoss(path_, lost, _result.error);
}

void SharedAppendFile::repairAndAppend(const Messages& _messages) {
  AppendFile::Result result{0, platform::noError};
  std::uint64_t lost = 0;
  bool isRecovered = false;
  {
    const Locked locked(*this);
    result.error = openWhenGone();
    if (result.error == platform::noError) {
      // The piece may be another process's.
      if (trouble_.isFailing() && !trouble_.isFragment) trouble_.isFragment = !file_->endsInLineFeed();
      const bool wasFailing = trouble_.isFailing();
      const std::string told = trouble_.text();
      const std::string text = told + std::string(_messages.text);
      result = file_->append(text.data(), text.size());
      if (result.written >= told.size()) trouble_.lost = 0;
      if (result.written > 0) trouble_.isFragment = text[result.written - 1] != '\n';
      lost = trouble_.noteResult(told.size(), _messages, result);
      isRecovered = wasFailing && result.error == platform::noError;
    } else {
      lost = trouble_.noteResult(0, _messages, result);
    }
    if (trouble_.lost == 0) needsRepair_.store(false, std::memory_order_release);
  }
  if (result.error != platform::noError) {
    reportLoss(path_, lost, result.error);
    noteLoss(path_, lost, result.error);
  } else if (isRecovered) {
    noteRecovery(path_);
  }
}

platform::ErrorCode SharedAppendFile::openWhenGone() {
  if (!isGone_) return platform::noError;
  const platform::ErrorCode error = open();
  if (error != platform::noError) return error;
  isGone_ = false;
  trouble_.isFragment = !file_->endsInLineFeed();
  if (takeOverFailing(path_)) trouble_.hasFailedBefore = true;
  return platform::noError;
}

platform::ErrorCode SharedAppendFile::open() {
  const bool empties = emptied_.begin();
  platform::ErrorCode error = platform::noError;
  try {
    if (file_) {
      error = file_->reopen(path_, empties);
    } else {
      file_ = AppendFile::open(path_, empties, error);
    }
  } catch (...) {
    // No memory. The next opening is not to wait for this one.
    if (empties) emptied_.end(false);
    throw;
  }
  if (empties) emptied_.end(error == platform::noError);
  return error;
}

// A thread that is gone held the lock, perhaps to open the file.
void SharedAppendFile::restartInChild() {
  needsRepair_.store(true, std::memory_order_release);
  emptied_.restartInChild();
  isGone_ = !file_ || !file_->isStillAt(path_);
  trouble_ = Trouble();
  trouble_.isFragment = !isGone_ && !file_->endsInLineFeed();
}

std::string SharedAppendFile::Trouble::text() const {
  std::string text = isFragment ? "\n" : "";
  if (lost > 0) {
    text += std::to_string(lost) + (lost == 1 ? " message was" : " messages were") +
            " lost: this file could not be written, error " + std::to_string(error) + "\n";
  }
  return text;
}

std::uint64_t SharedAppendFile::Trouble::noteResult(std::size_t _front, const Messages& _messages,
                                                    const AppendFile::Result& _result) {
  if (_result.error == platform::noError) {
    *this = Trouble();
    return 0;
  }
  const std::size_t written = std::max(_result.written, _front) - _front;
  if (written > 0) isFragment = _messages.text[written - 1] != '\n';
  const std::uint64_t count = _messages.countBeyond(written);
  lost += count;
  error = _result.error;
  return count;
}

}  // namespace detail

write_to_file::write_to_file(const std::string& _fileName, bool _overwrite)
    : file_(new detail::SharedAppendFile(_fileName, _overwrite)) {}

void write_to_file::operator()(const std::string& /*_logName*/, const std::string& _message) const {
  file_->append(_message, detail::messageTime(detail::threadState()));
}

}  // namespace boost::logging
