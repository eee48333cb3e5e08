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

// The call of the system in which a thread sleeps until somebody wakes it, as the kernel shows it. Empty for a thread
// that runs, that was woken and has no processor yet, or that waits for a disk: of those, too, the kernel shows a call.
std::string callOfSleeper(const std::string& _thread) {
  std::string status;
  std::getline(std::ifstream(_thread + "/stat"), status);
  const std::size_t nameEnd = status.rfind(") ");
  if (nameEnd == std::string::npos || status[nameEnd + 2] != 'S') return "";
  std::string call;
  std::getline(std::ifstream(_thread + "/syscall"), call);
  return !call.empty() && call[0] >= '0' && call[0] <= '9' ? call : "";
}

// The calls of all threads of a process; empty when one does not sleep.
std::string callsOfSleepers(const std::string& _process) {
  std::string calls;
  std::error_code error;
  for (const auto& thread : std::filesystem::directory_iterator(_process + "/task", error)) {
    const std::string call = callOfSleeper(thread.path());
    if (call.empty()) return "";
    calls += call + "\n";
  }
  return error ? "" : calls;
}

// Looks twice: one thread may have woken another one between the looks at the two.
bool allSleep(const std::string& _process) {
  const std::string calls = callsOfSleepers(_process);
  return !calls.empty() && callsOfSleepers(_process) == calls;
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
  return waitUntil([&thread] { return !callOfSleeper(thread).empty(); });
}

bool waitUntilProcessSleeps(long _process) {
  const std::string process = "/proc/" + std::to_string(_process);
  return waitUntil([&process] { return allSleep(process); });
}

}  // namespace testsupport
