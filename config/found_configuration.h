// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// What the calls of one thread find out about configuration files while it lives, without a trace of its own.
class FoundConfiguration {
 public:
  /// Objects of one thread nest; the outermost gets the notes.
  FoundConfiguration() noexcept;
  ~FoundConfiguration();
  FoundConfiguration(const FoundConfiguration&) = delete;
  FoundConfiguration& operator=(const FoundConfiguration&) = delete;

  /// The latest .cfg file of which it was checked that it can be read, whatever the result.
  const std::string& checkedPath() const { return checkedPath_; }
  /// The latest .init file that was looked for; the .cfg file of a generic CA that names no other.
  const std::string& initPath() const { return initPath_; }
  /// Whether the generic file was generated.
  bool isGenerated() const { return isGenerated_; }

  // For the functions that find something; on a thread without an object they do nothing.
  static void noteCheckedPath(const std::string& _path) noexcept;
  static void noteInitPath(const std::string& _path) noexcept;
  static void noteGenerated() noexcept;

 private:
  bool isOutermost_;
  std::string checkedPath_;
  std::string initPath_;
  bool isGenerated_ = false;
};

/// The CA of a configuration file: what stands between "qmrk_logging_" and the ending in its name; empty when that is
/// missing.
std::string caOfPath(const std::string& _path);

}  // namespace Quillmark_logging
