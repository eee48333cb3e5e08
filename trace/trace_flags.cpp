// SPDX-License-Identifier: MIT
#include "trace/trace_flags.h"

#include <atomic>

namespace Quillmark_logging {
namespace {

// Relaxed: each flag stands for itself and orders nothing. Constant-initialised, since static initialisers use them.
constinit std::atomic<bool> loadTimeTraceFlag{false};
constinit std::atomic<bool> freeFunctionTraceFlag{false};
constinit std::atomic<bool> tsModeFlag{false};

}  // namespace

bool loadTimeTrace() noexcept { return loadTimeTraceFlag.load(std::memory_order_relaxed); }
void setLoadTimeTrace(bool _on) noexcept { loadTimeTraceFlag.store(_on, std::memory_order_relaxed); }

bool freeFunctionTrace() noexcept { return freeFunctionTraceFlag.load(std::memory_order_relaxed); }
void setFreeFunctionTrace(bool _on) noexcept { freeFunctionTraceFlag.store(_on, std::memory_order_relaxed); }

bool tsMode() noexcept { return tsModeFlag.load(std::memory_order_relaxed); }
void setTsMode(bool _on) noexcept { tsModeFlag.store(_on, std::memory_order_relaxed); }

}  // namespace Quillmark_logging
