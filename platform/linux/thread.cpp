// SPDX-License-Identifier: MIT
#include "platform/thread.h"

#include <new>

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
  // First, since it may lack memory: nobody could wait for a thread that runs without a handle.
  const Handle handle = HandleTable::instance().insert(thread, nullptr);
  std::uint32_t id = 0;
  int error = 0;
  try {
    error = ThreadObject::start(thread, id);
  } catch (const std::bad_alloc&) {
    HandleTable::instance().remove(handle);
    throw;
  }
  setLastError(errnoCode(error));
  if (error != 0) {
    HandleTable::instance().remove(handle);
    return nullptr;
  }
  _id = id;
  return handle;
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
