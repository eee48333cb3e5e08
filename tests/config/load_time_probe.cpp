// SPDX-License-Identifier: MIT
// A program that loads the shared library and tells whether its trace is on.
#include <cstdio>

#include "quillmark_logging.h"

int main() {
  std::fputs(Quillmark_logging::isTraceEnabled() ? "on" : "off", stdout);
  return 0;
}
