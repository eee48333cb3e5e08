// SPDX-License-Identifier: MIT
#include "logsetup/succeeding_appender.h"

#include <utility>

namespace Quillmark_logging {

SucceedingAppender::SucceedingAppender(const std::string& _fileName, std::int32_t _maxSize, std::int32_t _fileCount,
                                       std::shared_ptr<const TakeOver> _takeOver)
    : rolling_file_appender(_fileName, _maxSize, _fileCount, nullptr, true), takeOver_(std::move(_takeOver)) {}

void SucceedingAppender::write(const std::string& _msg) {
  if (takeOver_ != nullptr) {
    const bool isOver = takeOver_->isOver();
    if (!isOver || file().out.identity() != takeOver_->fileAtEnd()) file().followName();
    if (isOver) takeOver_.reset();
  }
  rolling_file_appender::write(_msg);
}

}  // namespace Quillmark_logging
