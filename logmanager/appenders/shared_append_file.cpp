// SPDX-License-Identifier: MIT
#include "logmanager/appenders/shared_append_file.h"

#include <utility>

#include "logmanager/appenders/loss_report.h"

namespace boost::logging::detail {
namespace {

using platform::AppendFile;

/// A file that is gone from its path is to be recreated within a second.
constexpr std::int64_t CHECK_INTERVAL = 500;

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
};

SharedAppendFile::SharedAppendFile(const std::string& _path, bool _overwrite) : path_(_path), isToEmpty_(_overwrite) {}

void SharedAppendFile::append(const std::string& _message, std::int64_t _now) {
  if (isCheckDue(_now)) check();
  platform::ErrorCode error = platform::noError;
  if (needsCare_.load(std::memory_order_acquire)) {
    error = appendWithCare(_message);
  } else {
    const AppendFile::Result result = file_->append(_message.data(), _message.size());
    error = result.error;
    if (error != platform::noError) noteFailure(_message, result);
  }
  if (error != platform::noError) reportLoss(path_, error);
}

// The clock may be set back, and messages that were kept carry the time of their logging.
bool SharedAppendFile::isCheckDue(std::int64_t _now) {
  std::int64_t checkedAt = checkedAt_.load(std::memory_order_relaxed);
  if (_now >= checkedAt && _now - checkedAt < CHECK_INTERVAL) return false;
  return checkedAt_.compare_exchange_strong(checkedAt, _now, std::memory_order_relaxed);
}

void SharedAppendFile::check() {
  const Locked locked(*this);
  if (!file_ || file_->isStillAt(path_)) return;
  isGone_ = true;
  needsCare_.store(true, std::memory_order_release);
}

void SharedAppendFile::noteFailure(const std::string& _message, const AppendFile::Result& _result) {
  const Locked locked(*this);
  trouble_.noteResult(_message, _result);
  needsCare_.store(true, std::memory_order_release);
}

platform::ErrorCode SharedAppendFile::appendWithCare(const std::string& _message) {
  const Locked locked(*this);
  const platform::ErrorCode error = openWhenGone();
  if (error != platform::noError) return error;
  // The piece may be another process's.
  if (trouble_.lost > 0 && !trouble_.isFragment) trouble_.isFragment = !file_->endsInLineFeed();
  const std::string told = trouble_.text();
  const std::string text = told + _message;
  const AppendFile::Result result = file_->append(text.data(), text.size());
  if (result.written >= told.size()) trouble_.lost = 0;
  trouble_.noteResult(text, result);
  if (trouble_.lost == 0) needsCare_.store(false, std::memory_order_release);
  return result.error;
}

// On failure the message is counted as lost.
platform::ErrorCode SharedAppendFile::openWhenGone() {
  if (!isGone_) return platform::noError;
  const platform::ErrorCode error = open();
  if (error != platform::noError) {
    ++trouble_.lost;
    trouble_.error = error;
    return error;
  }
  isToEmpty_ = false;
  isGone_ = false;
  trouble_.isFragment = !file_->endsInLineFeed();
  return platform::noError;
}

platform::ErrorCode SharedAppendFile::open() {
  if (file_) return file_->reopen(path_, isToEmpty_);
  platform::ErrorCode error = platform::noError;
  file_ = AppendFile::open(path_, isToEmpty_, error);
  return file_ ? platform::noError : error;
}

// A thread of the parent held the lock, perhaps to open the file.
void SharedAppendFile::restartInChild() {
  needsCare_.store(true, std::memory_order_release);
  isToEmpty_ = false;
  isGone_ = true;
  trouble_ = Trouble();
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
