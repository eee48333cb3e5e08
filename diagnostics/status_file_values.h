// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "diagnostics/status_page_values.h"

namespace Quillmark_logging::status {

/// What the status page tells of a log file.
struct FileValues {
  std::string path;
  FileKind kind = FileKind::none;
  std::uint32_t state = 0;  ///< isFailing, hasOwnThread
  std::uint64_t lost = 0;
  std::uint64_t dropped = 0;
  std::int64_t failedAt = 0;  ///< nanoseconds since 1970-01-01 00:00 UTC
  std::uint64_t held = 0;
  std::uint32_t error = 0;
};

}  // namespace Quillmark_logging::status
