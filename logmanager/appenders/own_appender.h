// SPDX-License-Identifier: MIT
#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>
#include <string_view>

#include "boost/logging/callables.hpp"
#include "logmanager/appenders/shared_append_file.h"
#include "logmanager/appenders/ts_appender.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {

/// A write_to_file or ts_appender, called without the detour through the function object that it came in, which takes
/// several calls and another look-up of the thread's state. A value, which shares what it calls.
class OwnAppender {
 public:
  /// @param _appender any appender.
  explicit OwnAppender(const appender& _appender);

  /// Whether the appender is one of these two.
  bool isThere() const { return file_ != nullptr || handle_ != nullptr; }

  /// Does what the appender does. To be called only when it is there. May throw.
  /// @param _thread the state of the calling thread, which passes a message through callables.
  void append(ThreadState& _thread, const std::string& _line) const {
    if (file_ != nullptr) {
      file_->append(_line, messageTime(_thread));
    } else {
      handle_->append(_line);
    }
  }

  /// For a write_to_file: appends all messages by one call of the system.
  /// @return false, and nothing is done, for another one.
  bool appendTogether(const SharedAppendFile::Messages& _messages, std::int64_t _now) const {
    if (file_ == nullptr) return false;
    file_->append(_messages, _now);
    return true;
  }

  bool isFile() const { return file_ != nullptr; }

  /// For a write_to_file: appends the line.
  /// @param _now the wall clock, in milliseconds.
  void appendToFile(std::string_view _line, std::int64_t _now) const { file_->append(_line, _now); }

  /// Null for another one.
  BatchHandle* writer() const { return handle_.get(); }

 private:
  boost::shared_ptr<SharedAppendFile> file_;
  boost::shared_ptr<BatchHandle> handle_;
};

}  // namespace boost::logging::detail
