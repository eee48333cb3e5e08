// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "diagnostics/status_page_layout.h"

namespace Quillmark_logging::status {

// An entry of the field "files" of the status page; the offsets count from its beginning.

constexpr std::uint32_t fileSize = 704;
constexpr std::uint32_t fileCount = files.size / fileSize;

constexpr Field fileKind{"kind", Kind::number, 0, 4};
constexpr Field fileState{"state", Kind::number, 4, 4};
constexpr Field fileLost{"lost", Kind::number, 8, 8};
constexpr Field fileDropped{"dropped", Kind::number, 16, 8};
constexpr Field fileFailedAt{"failed_at", Kind::number, 24, 8};
constexpr Field fileHeld{"held", Kind::number, 32, 8};
constexpr Field fileError{"error", Kind::number, 40, 4};
constexpr Field filePath{"path", Kind::text, 48, 656};

}  // namespace Quillmark_logging::status
