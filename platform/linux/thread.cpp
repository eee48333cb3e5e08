// SPDX-License-Identifier: MIT
#include "platform/thread.h"

#include "platform/fault.h"
#include "platform/linux/errno_code.h"
#include "platform/linux/thread_object.h"

namespace platform {
namespace {

std::shared_ptr<ThreadObject> threadOf(Handle _handle) {
  auto thread = HandleTable::instance().find<ThreadObject>(_handle);
  setLastError(thread != nullptr ? noError : errorInvalidHandle);
  return thread;
}

}  // namespace

Handle createThread(ThreadRoutine _routine, void* _argument, std::uint32_t& _id) {
  setLastError(injectedFault(Call::createThread));
  if (lastError() != noError) return nullptr;
  const auto thread = std::make_shared<ThreadObject>(_routine, _argument);
  std::uint32_t id = 0;
  const int error = ThreadObject::start(thread, id);
  setLastError(errnoCode(error));
  if (error != 0) return nullptr;
  _id = id;
  return HandleTable::instance().insert(thread, nullptr);
}

std::uint32_t waitForThread(Handle _thread, std::uint32_t _milliseconds) {
  const auto thread = threadOf(_thread);
  return thread != nullptr ? thread->wait(_milliseconds) : waitFailed;
}

bool terminateThread(Handle _thread, std::uint32_t _exitCode) {
  const auto thread = threadOf(_thread);
  if (thread == nullptr) return false;
  const bool terminated = thread->terminate(_exitCode);
  setLastError(terminated ? noError : errorAccessDenied);
  return terminated;
}

bool threadExitCode(Handle _thread, std::uint32_t& _code) {
  const auto thread = threadOf(_thread);
  if (thread == nullptr) return false;
  _code = thread->exitCode();
  return true;
}

}  // namespace platform
