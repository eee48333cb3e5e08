// SPDX-License-Identifier: MIT
#include "logsetup/fork_count.h"

#include <atomic>

#include "platform/fork_handlers.h"

namespace Quillmark_logging {
namespace {

constinit std::atomic<std::uint64_t> forks{0};

void noteFork() { forks.fetch_add(1, std::memory_order_relaxed); }

bool registerHandlers() {
  platform::registerForkHandlers(nullptr, &noteFork, &noteFork);
  return true;
}

}  // namespace

std::uint64_t forkCount() {
  [[maybe_unused]] static const bool registered = registerHandlers();
  return forks.load(std::memory_order_relaxed);
}

}  // namespace Quillmark_logging
