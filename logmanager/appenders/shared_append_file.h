// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "boost/logging/callables.hpp"
#include "logmanager/appenders/once_emptied.h"
#include "logmanager/threads/process_lock.h"
#include "platform/append_file.h"

namespace boost::logging::detail {

/// What the copies of a write_to_file share: a log file to which many threads and processes append, and which stays
/// usable whatever happens to it. The first message opens it; it is recreated when it is gone from its path, and
/// retried after a failure. Any threads may call all functions at once. As long as all goes well, a message takes no
/// lock and costs one system call.
class SharedAppendFile {
 public:
  /// @param _overwrite whether the first opening empties the file, in this process or one forked from it.
  SharedAppendFile(const std::string& _path, bool _overwrite);
  /// What it has lost and not told in the file stays untold there: standard error and list_files have told it.
  ~SharedAppendFile();
  SharedAppendFile(const SharedAppendFile&) = delete;
  SharedAppendFile& operator=(const SharedAppendFile&) = delete;

  /// The file that a write_to_file appends to; null for any other appender.
  static SharedAppendFile* of(const appender& _appender);

  const std::string& path() const { return path_; }

  /// Messages that are appended together.
  struct Messages {
    std::string_view text;
    /// Where each message ends in the text.
    std::span<const std::size_t> ends;

    /// How many messages end beyond that many bytes.
    std::uint64_t countBeyond(std::size_t _size) const;
  };

  /// Appends messages by one system call. What cannot be written is lost, counted per message, and reported.
  /// @param _now the wall clock, in milliseconds.
  void append(const Messages& _messages, std::int64_t _now);

  /// The same with one message.
  void append(std::string_view _message, std::int64_t _now) {
    const std::size_t end = _message.size();
    append(Messages{_message, {&end, 1}}, _now);
  }

 private:
  /// What to repair and report before the next message.
  struct Trouble {
    /// Whether the file ends with a fragment of a message.
    bool isFragment = false;
    /// How many messages did not reach the file, and why the last one did not.
    std::uint64_t lost = 0;
    platform::ErrorCode error = platform::noError;
    /// Whether the one before it on the path could not write.
    bool hasFailedBefore = false;

    bool isFailing() const { return lost > 0 || hasFailedBefore; }
    std::string text() const;
    /// @param _front how many of the written bytes precede the messages.
    /// @return how many messages were lost.
    std::uint64_t noteResult(std::size_t _front, const Messages& _messages,
                             const platform::AppendFile::Result& _result);
  };

  class Locked;

  bool isCheckDue(std::int64_t _now);
  void check();
  void noteFailure(const Messages& _messages, const platform::AppendFile::Result& _result);
  void repairAndAppend(const Messages& _messages);
  platform::ErrorCode openWhenGone();
  platform::ErrorCode open();
  void restartInChild();

  const std::string path_;
  /// Null until the first opening. The object stays; it reopens a file that is gone from its path.
  std::unique_ptr<platform::AppendFile> file_;
  /// Whether the next message must take the lock, to open the file or because of trouble. False only once the file is
  /// open.
  std::atomic<bool> needsRepair_{true};
  std::atomic<std::int64_t> checkedAt_{0};

  ProcessLock lock_;
  OnceEmptied emptied_;
  bool isGone_ = true;
  Trouble trouble_;
};

}  // namespace boost::logging::detail
