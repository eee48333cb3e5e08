// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// How often the process, or the one that it was forked from, has forked since it was started: a parent and a child
/// share the positions of the files that were open. May be called from any thread.
std::uint64_t forkCount();

}  // namespace platform
