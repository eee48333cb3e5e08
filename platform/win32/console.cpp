// SPDX-License-Identifier: MIT
#include "platform/console.h"

#include <conio.h>

#include "platform/fault.h"

namespace platform {

void writeConsole(const std::string& _text) {
  if (_text.empty() || injectedFault(Call::consoleWrite) != noError) return;
  ::_cprintf("%s", _text.c_str());
}

}  // namespace platform
