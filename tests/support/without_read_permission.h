// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace testsupport {

/// While it lives, the access test for reading fails on an existing file: on Linux because the process acts as another
/// user, from whom the rights on the file are taken. On Windows the C run-time's access test lets everybody read every
/// file, so there the _nth access test of the process from now on is made to fail.
class WithoutReadPermission {
 public:
  WithoutReadPermission(const std::string& _path, int _nth);
  ~WithoutReadPermission();
  WithoutReadPermission(const WithoutReadPermission&) = delete;
  WithoutReadPermission& operator=(const WithoutReadPermission&) = delete;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace testsupport
