// SPDX-License-Identifier: MIT
#include "platform/word_wait.h"

#include "platform/win32/windows_api.h"

namespace platform {
namespace {

/// What sleeps looks again after that, should a call to wake it be missing.
constexpr DWORD longestSleep = 100;

using WaitOnAddressFunction = BOOL(WINAPI*)(volatile void*, void*, SIZE_T, DWORD);
using WakeByAddressSingleFunction = void(WINAPI*)(void*);

// Since Windows 8, and not in the import libraries of every compiler. (The waiting of std::atomic loses calls to wake
// in libstdc++ 12 where it has no futex.)
struct AddressFunctions {
  WaitOnAddressFunction wait = nullptr;
  WakeByAddressSingleFunction wake = nullptr;
};

AddressFunctions findAddressFunctions() {
  AddressFunctions found;
  const HMODULE module = ::GetModuleHandleA("kernelbase.dll");
  if (module == nullptr) return found;
  found.wait =
      reinterpret_cast<WaitOnAddressFunction>(reinterpret_cast<void*>(::GetProcAddress(module, "WaitOnAddress")));
  found.wake = reinterpret_cast<WakeByAddressSingleFunction>(
      reinterpret_cast<void*>(::GetProcAddress(module, "WakeByAddressSingle")));
  return found;
}

const AddressFunctions& addressFunctions() {
  static const AddressFunctions found = findAddressFunctions();
  return found;
}

}  // namespace

void sleepWhile(const std::atomic<std::uint32_t>& _word, std::uint32_t _value) noexcept {
  if (addressFunctions().wait == nullptr) {
    ::Sleep(1);
    return;
  }
  auto& word = const_cast<std::atomic<std::uint32_t>&>(_word);
  addressFunctions().wait(&word, &_value, sizeof _value, longestSleep);
}

void wakeOne(std::atomic<std::uint32_t>& _word) noexcept {
  if (addressFunctions().wake != nullptr) addressFunctions().wake(&_word);
}

}  // namespace platform
