// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Quillmark_logging {

/// How often the process, or the one that it was forked from, has forked since the first call: a parent and a child
/// share the positions of the files that were open. Always 0 on Windows. May be called from any thread.
std::uint64_t forkCount();

}  // namespace Quillmark_logging
