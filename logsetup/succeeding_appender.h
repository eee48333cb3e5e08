// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "logsetup/file_succession.h"
#include "logsetup/rolling_file_appender.h"

namespace Quillmark_logging {

/// A rolling appender that can take the place of another one of the same file and pattern, and be replaced, while
/// threads log: the two take turns, and whoever finds that the other one had a turn continues the file that has the
/// name by then. Appenders of other patterns on the file know nothing of it.
class SucceedingAppender : public boost::logging::rolling_file_appender {
 public:
  /// Opens the file at once, for appending. The other arguments are those of rolling_file_appender.
  /// @param _pattern to which it is connected.
  SucceedingAppender(const std::string& _fileName, std::int32_t _maxSize, std::int32_t _fileCount,
                     const std::string& _pattern);

  void write(const std::string& _msg) override;

 private:
  std::shared_ptr<FileSuccession> succession_;
  /// One for all copies, which share a stream.
  std::uint64_t member_;
};

}  // namespace Quillmark_logging
