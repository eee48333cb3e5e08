// SPDX-License-Identifier: MIT
#include "tests/support/fault_plan.h"

#include <array>
#include <atomic>

namespace testsupport {
namespace {

// Relaxed atomics on purpose: a lock here would order the threads of a test and hide their races from the sanitizer.
struct Entry {
  std::atomic<int> calls{0};
  std::atomic<int> firstFailing{0};
  std::atomic<int> lastFailing{-1};
  std::atomic<platform::ErrorCode> error{platform::noError};
  /// How many calls are left until the hook runs.
  std::atomic<int> hookAfter{0};
  std::atomic<const std::function<void()>*> hook{nullptr};
};

constexpr std::size_t numberOfCalls = static_cast<std::size_t>(platform::Call::moduleVersion) + 1;

// Constant-initialised: static initialisers of other files already ask.
constinit std::array<Entry, numberOfCalls> entries;

Entry& entryOf(platform::Call _call) { return entries[static_cast<std::size_t>(_call)]; }

}  // namespace

FaultPlan::FaultPlan(platform::Call _call, int _nth, platform::ErrorCode _error, int _times) : call_(_call) {
  auto& entry = entryOf(_call);
  entry.calls = 0;
  entry.error = _error;
  entry.firstFailing = _nth;
  entry.lastFailing = _nth + _times - 1;
}

FaultPlan::~FaultPlan() { entryOf(call_).lastFailing = -1; }

int FaultPlan::calls() const { return entryOf(call_).calls; }

CallHook::CallHook(platform::Call _call, int _nth, const std::function<void()>& _function)
    : call_(_call), function_(_function) {
  entryOf(_call).hookAfter = _nth;
  entryOf(_call).hook = &function_;
}

CallHook::~CallHook() { entryOf(call_).hook = nullptr; }

}  // namespace testsupport

namespace platform {

ErrorCode injectedFault(Call _call) noexcept {
  auto& entry = testsupport::entryOf(_call);
  const std::function<void()>* const hook = entry.hook.load(std::memory_order_acquire);
  if (hook != nullptr && entry.hookAfter.fetch_sub(1, std::memory_order_relaxed) == 1) (*hook)();
  const int call = entry.calls.fetch_add(1, std::memory_order_relaxed) + 1;
  const bool fails = call >= entry.firstFailing.load(std::memory_order_relaxed) &&
                     call <= entry.lastFailing.load(std::memory_order_relaxed);
  return fails ? entry.error.load(std::memory_order_relaxed) : noError;
}

}  // namespace platform
