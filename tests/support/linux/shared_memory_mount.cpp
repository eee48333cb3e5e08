// SPDX-License-Identifier: MIT
#include "tests/support/linux/shared_memory_mount.h"

#include <sched.h>
#include <sys/mount.h>

#include <cstdio>
#include <cstdlib>

namespace testsupport {
namespace {

constexpr char place[] = "/dev/shm";

void orAbort(int _result, const char* _what) {
  if (_result != 0) {
    std::perror(_what);
    std::fputs("These tests need the rights of root, to mount a /dev/shm of their own.\n", stderr);
    std::abort();
  }
}

// In a mount namespace of its own the process shows its mounts to nobody; they end with it.
void leaveCommonMounts() {
  [[maybe_unused]] static const bool done = [] {
    orAbort(::unshare(CLONE_NEWNS), "unshare");
    orAbort(::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr), "making the mounts private");
    return true;
  }();
}

}  // namespace

void mountSharedMemory(const std::string& _limits) {
  leaveCommonMounts();
  const std::string options = "mode=1777" + (_limits.empty() ? "" : "," + _limits);
  orAbort(::mount("qmrk-test", place, "tmpfs", MS_NOSUID | MS_NODEV, options.c_str()), "mount");
}

void unmountSharedMemory() { orAbort(::umount2(place, MNT_DETACH), "umount2"); }

}  // namespace testsupport
