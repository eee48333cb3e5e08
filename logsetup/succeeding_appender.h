// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "logsetup/rolling_file_appender.h"
#include "platform/positioned_file.h"

namespace Quillmark_logging {

/// The time in which the appenders of a set-up call take over from earlier ones: from before they open their file until
/// the earlier ones get no more messages.
class TakeOver {
 public:
  /// Call it once, on the thread that sets up.
  /// @param _path path of the file.
  void end(const std::string& _path) {
    fileAtEnd_ = platform::identityOfFileAt(_path);
    isOver_.store(true, std::memory_order_release);
  }

  bool isOver() const { return isOver_.load(std::memory_order_acquire); }

  /// Which file stood at the path at the end; ask once isOver().
  const platform::FileIdentity& fileAtEnd() const { return fileAtEnd_; }

 private:
  std::atomic<bool> isOver_{false};
  platform::FileIdentity fileAtEnd_;
};

/// A rolling appender that takes over a file from another one. If the other still rolls after this one has opened the
/// file, lines belong into the new file, and this one follows. After the take-over it follows nobody.
class SucceedingAppender : public boost::logging::rolling_file_appender {
 public:
  /// Opens the file at once, for appending. The other arguments are those of rolling_file_appender.
  SucceedingAppender(const std::string& _fileName, std::int32_t _maxSize, std::int32_t _fileCount,
                     std::shared_ptr<const TakeOver> _takeOver);

  void write(const std::string& _msg) override;

 private:
  /// Null once that is over.
  std::shared_ptr<const TakeOver> takeOver_;
};

}  // namespace Quillmark_logging
