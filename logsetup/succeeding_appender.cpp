// SPDX-License-Identifier: MIT
#include "logsetup/succeeding_appender.h"

namespace Quillmark_logging {

SucceedingAppender::SucceedingAppender(const std::string& _fileName, std::int32_t _maxSize, std::int32_t _fileCount,
                                       const std::string& _pattern)
    : rolling_file_appender(_fileName, _maxSize, _fileCount, nullptr, true),
      succession_(FileSuccession::of(_fileName, _pattern)),
      member_(succession_->newMember()) {}

void SucceedingAppender::write(const std::string& _msg) {
  const FileSuccession::Turn turn(*succession_, member_);
  // A roll that was broken off has left the file closed; one that has failed leaves it so.
  if (turn.followsBroken() || (turn.followsAnother() && file().out.is_open())) file().reopen();
  rolling_file_appender::write(_msg);
}

}  // namespace Quillmark_logging
