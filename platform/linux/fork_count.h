// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// How often the process, or the one that it was forked from, has forked since its start: a parent and a child share
/// the positions of open files. Any thread may call it.
std::uint64_t forkCount();

}  // namespace platform
