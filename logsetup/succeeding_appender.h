// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "logsetup/rolling_file_appender.h"
#include "platform/positioned_file.h"

namespace Quillmark_logging {

/// The time in which appenders that a set-up call makes take the place of former ones: it begins before they open their
/// file and ends when the former ones get no more messages.
class TakeOver {
 public:
  /// To be called once, by the thread that sets up.
  /// @param _path that of the file.
  void end(const std::string& _path) {
    fileAtEnd_ = platform::identityOfFileAt(_path);
    isOver_.store(true, std::memory_order_release);
  }

  bool isOver() const { return isOver_.load(std::memory_order_acquire); }

  /// Which file stood at the path at the end; to be asked when that is over.
  const platform::FileIdentity& fileAtEnd() const { return fileAtEnd_; }

 private:
  std::atomic<bool> isOver_{false};
  platform::FileIdentity fileAtEnd_;
};

/// A rolling appender that takes the place of another one on its file. The other may roll after this one has opened the
/// file, which is then not the one to which lines have to go: this one follows. Afterwards it follows nobody.
class SucceedingAppender : public boost::logging::rolling_file_appender {
 public:
  /// Opens the file at once, for appending. The other arguments are those of rolling_file_appender.
  SucceedingAppender(const std::string& _fileName, std::int32_t _maxSize, std::int32_t _fileCount,
                     std::shared_ptr<const TakeOver> _takeOver);

  void write(const std::string& _msg) override;

 private:
  /// Null once it is over.
  std::shared_ptr<const TakeOver> takeOver_;
};

}  // namespace Quillmark_logging
