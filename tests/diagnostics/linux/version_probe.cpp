// SPDX-License-Identifier: MIT
// Prints the version of the library that it is linked with, a blank, and the version of LogTest.
#include <cstdio>

#include "quillmark_logging.h"

int main() {
  std::printf("%s %s", Quillmark_logging::getQuillmarkLoggingVersion().c_str(),
              Quillmark_logging::getLogTestVersion().c_str());
  return 0;
}
