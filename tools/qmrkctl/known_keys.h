// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "quillmark_logging_names.h"

namespace qmrkctl {

/// A key of a .cfg file, and the value that applies without it.
struct KnownKey {
  std::string_view key;
  std::string_view defaultValue;
};

/// All keys that the library reads.
inline constexpr std::array<KnownKey, 12> knownKeys = {{
    {Quillmark_logging::CA_NR, ""},
    {Quillmark_logging::REDIRECT_CA_NR, ""},
    {Quillmark_logging::LOG_STATE, "FALSE"},
    {Quillmark_logging::COMMON_LOG_FILE_NAME, ""},
    {Quillmark_logging::COMMON_LOG_FILE_ROOT, Quillmark_logging::DEFAULT_COMMON_LOG_FILE_ROOT},
    {Quillmark_logging::COMMON_LOG_FILE_FILTER, ""},
    {Quillmark_logging::MILLISECOND_RESOLUTION, "FALSE"},
    {Quillmark_logging::SPEC_LOG_ROTATION, "FALSE"},
    {Quillmark_logging::SPEC_LOG_FILE_LIMIT, Quillmark_logging::DEFAULT_SPEC_LOG_FILE_LIMIT},
    {Quillmark_logging::SPEC_NR_OF_LOG_FILES, Quillmark_logging::DEFAULT_SPEC_NR_OF_LOG_FILES},
    {Quillmark_logging::TS_APPENDERS, "FALSE"},
    {Quillmark_logging::QMRK_TRACE, "FALSE"},
}};

}  // namespace qmrkctl
