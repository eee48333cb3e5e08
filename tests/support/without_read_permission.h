// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace testsupport {

/// While it lives, the process acts as another user, who has no rights on the file. On Windows, where the C run-time's
/// access test lets everybody read every file, it also makes all access tests for reading fail.
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
