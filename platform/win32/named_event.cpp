// SPDX-License-Identifier: MIT
#include "platform/named_event.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {
namespace {

// Whether the call is to be made. The last error is clear then, as the system leaves it alone on success.
bool mayCall(Call _call) {
  ::SetLastError(injectedFault(_call));
  return ::GetLastError() == noError;
}

}  // namespace

Handle createEvent(const std::string& _name) {
  if (!mayCall(Call::openEvent)) return nullptr;
  return ::CreateEventA(nullptr, TRUE, FALSE, _name.c_str());
}

Handle openEvent(const std::string& _name) {
  if (!mayCall(Call::openEvent)) return nullptr;
  return ::OpenEventA(EVENT_MODIFY_STATE | SYNCHRONIZE, FALSE, _name.c_str());
}

bool setEvent(Handle _event) { return mayCall(Call::setEvent) && ::SetEvent(_event) == TRUE; }

bool resetEvent(Handle _event) { return mayCall(Call::resetEvent) && ::ResetEvent(_event) == TRUE; }

std::uint32_t settingsOf(Handle /*_event*/) { return 0; }

std::uint32_t waitForEvent(Handle _event, std::uint32_t _milliseconds) {
  return mayCall(Call::waitEvent) ? ::WaitForSingleObject(_event, _milliseconds) : waitResultOfFault(::GetLastError());
}

}  // namespace platform
