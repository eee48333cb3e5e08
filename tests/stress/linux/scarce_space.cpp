// SPDX-License-Identifier: MIT
#include "tests/stress/linux/scarce_space.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace stress {
namespace {

// The file system has four times the space, of which the filler takes all but what is wanted.
constexpr char mountOptions[] = "mode=0700,size=256k";
constexpr long fillerBytes = 3 * ScarceSpace::bytes;

bool mountAt(const std::string& _folder) {
  if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount("stress", _folder.c_str(), "tmpfs", MS_NOSUID | MS_NODEV, mountOptions) == 0;
}

void limitFileSize(rlim_t _bytes) {
  rlimit limit{};
  if (::getrlimit(RLIMIT_FSIZE, &limit) != 0) std::abort();
  limit.rlim_cur = _bytes;
  if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) std::abort();
}

}  // namespace

ScarceSpace::ScarceSpace(const std::string& _folder) : folder_(_folder) {
  std::filesystem::create_directories(folder_);
  isMounted_ = mountAt(folder_);
  fill();
}

void ScarceSpace::makeRoom() const {
  if (isMounted_) {
    std::filesystem::remove(filler());
  } else {
    limitFileSize(RLIM_INFINITY);
  }
}

void ScarceSpace::fill() const {
  if (isMounted_) {
    std::ofstream(filler()) << std::string(fillerBytes, 'f');
  } else {
    limitFileSize(bytes);
  }
}

}  // namespace stress
