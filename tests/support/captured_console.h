// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// While it lives, captures what the process writes to its console (on Linux standard error) instead of showing it.
/// Only one may live at a time.
class CapturedConsole {
 public:
  CapturedConsole();
  ~CapturedConsole();
  CapturedConsole(const CapturedConsole&) = delete;
  CapturedConsole& operator=(const CapturedConsole&) = delete;

  /// Everything written since the construction, byte for byte.
  std::string text() const;

 private:
  struct State;
  State* state_;
};

}  // namespace testsupport
