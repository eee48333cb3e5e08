// SPDX-License-Identifier: MIT
#include "platform/linux/fork_count.h"

#include <atomic>

#include "platform/fork_handlers.h"

namespace platform {
namespace {

constinit std::atomic<std::uint64_t> forks{0};

void noteFork() { forks.fetch_add(1, std::memory_order_relaxed); }

// While the program is loaded: a local static that is made at the first use could be half made when the process forks.
[[maybe_unused]] const bool registered = [] {
  registerForkHandlers(nullptr, &noteFork, &noteFork);
  return true;
}();

}  // namespace

std::uint64_t forkCount() { return forks.load(std::memory_order_relaxed); }

}  // namespace platform
