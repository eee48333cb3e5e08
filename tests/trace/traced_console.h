// SPDX-License-Identifier: MIT
#pragma once

#include "config/cfg_data_manager.h"
#include "tests/support/captured_console.h"
#include "trace/trace_flags.h"

namespace testsupport {

/// While it lives, every trace of the library is on, and kept instead of shown; afterwards all of them are off.
class TracedConsole {
 public:
  TracedConsole() { switchAll(true); }
  ~TracedConsole() { switchAll(false); }
  TracedConsole(const TracedConsole&) = delete;
  TracedConsole& operator=(const TracedConsole&) = delete;

  std::string text() const { return console_.text(); }

 private:
  static void switchAll(bool _on) {
    Quillmark_logging::setLoadTimeTrace(_on);
    Quillmark_logging::setFreeFunctionTrace(_on);
    CfgDataManager::getInstance(false);
  }

  CapturedConsole console_;
};

}  // namespace testsupport
