// SPDX-License-Identifier: MIT
#include "platform/handle.h"

#include <memory>
#include <utility>

#include "platform/fault.h"
#include "platform/linux/handle_table.h"

namespace platform {
namespace {

constinit thread_local ErrorCode latestError = noError;

}  // namespace

bool closeHandle(Handle _handle) {
  const ErrorCode fault = injectedFault(Call::closeHandle);
  const bool closed = fault == noError && HandleTable::instance().remove(_handle);
  setLastError(closed ? noError : (fault != noError ? fault : errorInvalidHandle));
  return closed;
}

Handle duplicateHandle(Handle _handle) {
  std::shared_ptr<HandleTarget> target = HandleTable::instance().findAny(_handle);
  setLastError(target != nullptr ? noError : errorInvalidHandle);
  return target != nullptr ? HandleTable::instance().insert(std::move(target), nullptr) : nullptr;
}

ErrorCode lastError() noexcept { return latestError; }

void setLastError(ErrorCode _error) noexcept { latestError = _error; }

}  // namespace platform
