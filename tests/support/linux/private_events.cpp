// SPDX-License-Identifier: MIT
#include "tests/support/private_events.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "tests/support/linux/shared_memory_mount.h"

namespace testsupport {
namespace {

void orAbort(bool _isDone, const char* _what) {
  if (_isDone) return;
  std::perror(_what);
  std::fputs("These tests need the rights of root, to have process ids of their own.\n", stderr);
  std::abort();
}

bool startOver() {
  std::fflush(nullptr);
  orAbort(::unshare(CLONE_NEWPID | CLONE_NEWNS) == 0, "unshare");
  const pid_t child = ::fork();
  orAbort(child != -1, "fork");
  if (child != 0) {
    int status = 0;
    ::waitpid(child, &status, 0);
    ::_exit(WIFEXITED(status) ? WEXITSTATUS(status) : 1);
  }
  orAbort(::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "making the mounts private");
  orAbort(::mount("qmrk-test", "/proc", "proc", 0, nullptr) == 0, "mounting /proc");
  return true;
}

}  // namespace

void usePrivateEvents() { [[maybe_unused]] static const bool done = (mountSharedMemory(""), true); }

void usePrivateProcesses() { [[maybe_unused]] static const bool done = startOver(); }

}  // namespace testsupport
