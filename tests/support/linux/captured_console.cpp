// SPDX-License-Identifier: MIT
#include "tests/support/captured_console.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace testsupport {

struct CapturedConsole::State {
  std::FILE* file;
  int savedError;
};

CapturedConsole::CapturedConsole() : state_(new State{std::tmpfile(), ::dup(STDERR_FILENO)}) {
  if (state_->file == nullptr || ::dup2(::fileno(state_->file), STDERR_FILENO) < 0) {
    std::abort();
  }
}

CapturedConsole::~CapturedConsole() {
  ::dup2(state_->savedError, STDERR_FILENO);
  ::close(state_->savedError);
  std::fclose(state_->file);
  delete state_;
}

std::string CapturedConsole::text() const {
  std::string text;
  char buffer[4096];
  off_t offset = 0;
  for (ssize_t got = 0; (got = ::pread(::fileno(state_->file), buffer, sizeof buffer, offset)) > 0; offset += got) {
    text.append(buffer, static_cast<std::size_t>(got));
  }
  return text;
}

}  // namespace testsupport
