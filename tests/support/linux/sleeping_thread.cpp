// SPDX-License-Identifier: MIT
#include "tests/support/sleeping_thread.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "tests/support/linux/sleeping_process.h"

namespace testsupport {
namespace {

// For a thread that sleeps in a system call the kernel shows the number of the call.
bool sleeps(const std::string& _thread) {
  std::ifstream call(_thread + "/syscall");
  const int first = call.peek();
  return first >= '0' && first <= '9';
}

bool allSleep(const std::string& _process) {
  std::error_code error;
  for (const auto& thread : std::filesystem::directory_iterator(_process + "/task", error)) {
    if (!sleeps(thread.path())) return false;
  }
  return !error;
}

bool waitUntil(const std::function<bool()>& _isSo) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!_isSo()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  }
  return true;
}

}  // namespace

bool waitUntilThreadSleeps(std::uint32_t _id) {
  const std::string thread = "/proc/self/task/" + std::to_string(_id);
  return waitUntil([&thread] { return sleeps(thread); });
}

bool waitUntilProcessSleeps(long _process) {
  const std::string process = "/proc/" + std::to_string(_process);
  return waitUntil([&process] { return allSleep(process); });
}

}  // namespace testsupport
