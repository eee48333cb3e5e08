// SPDX-License-Identifier: MIT
#include "tests/support/running_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "platform/win32/windows_api.h"

namespace testsupport {

int rounds(int _full) { return std::max(1, _full / 20); }

bool cannotRunUnderWine(const std::string& _reason) {
  // Only Wine's ntdll has this function.
  if (::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr) return false;
  std::cout << "cannot run under Wine: " << _reason << std::endl;
  ::testing::Test::RecordProperty("cannot_run_here", _reason);
  return true;
}

}  // namespace testsupport
