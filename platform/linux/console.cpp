// SPDX-License-Identifier: MIT
#include "platform/console.h"

#include <unistd.h>

#include <cerrno>

#include "platform/fault.h"
#include "platform/linux/blocked_signal.h"
#include "platform/linux/file_write.h"

namespace platform {

void writeConsole(const std::string& _text) {
  if (_text.empty() || injectedFault(Call::consoleWrite) != noError) return;
  // A trace that nobody reads any more must not end the process.
  BlockedSignal brokenPipe(SIGPIPE);
  std::size_t done = 0;
  while (done < _text.size()) {
    const ssize_t written = writeToFile(STDERR_FILENO, _text.data() + done, _text.size() - done);
    if (written == -1) {
      if (errno == EPIPE) brokenPipe.consume();
      return;
    }
    done += static_cast<std::size_t>(written);
  }
}

}  // namespace platform
