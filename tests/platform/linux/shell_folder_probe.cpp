// SPDX-License-Identifier: MIT
// Prints whether the program runs with rights that its caller does not have ("secure" or "plain"), a blank, and the
// folder of the machine-wide application data.

#include <sys/auxv.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "platform/shell_folder.h"

int main() {
  std::string path;
  if (!platform::shellFolder(platform::ShellFolder::commonAppData, path)) return 1;
  std::printf("%s %s", ::getauxval(AT_SECURE) != 0 ? "secure" : "plain", path.c_str());
  std::fflush(stdout);
  // Without the checks of a sanitizer at exit, which may not look into a process with the rights of another user.
  ::_exit(0);
}
