// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace testsupport {

/// While it lives, the process acts as another user, from whom the rights on the file are taken. Since the C run-time's
/// access test on Windows lets everybody read every file, all access tests for reading are made to fail there.
class WithoutReadPermission {
 public:
  explicit WithoutReadPermission(const std::string& _path);
  ~WithoutReadPermission();
  WithoutReadPermission(const WithoutReadPermission&) = delete;
  WithoutReadPermission& operator=(const WithoutReadPermission&) = delete;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace testsupport
