// SPDX-License-Identifier: MIT
#include "platform/running_process.h"

#include <array>

#include "platform/win32/windows_api.h"

namespace platform {
namespace {

constexpr DWORD longestProgramPath = 32'768;
constexpr DWORD longestUserName = 257;

}  // namespace

std::uint64_t startTimeOf(std::uint32_t _processId) {
  const HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, _processId);
  if (process == nullptr) return 0;
  FILETIME start{};
  FILETIME end{};
  FILETIME inKernel{};
  FILETIME inProgram{};
  DWORD exitCode = 0;
  // The object of a process outlives it as long as somebody has a handle of it.
  const bool runs = ::GetExitCodeProcess(process, &exitCode) != 0 && exitCode == STILL_ACTIVE;
  const bool isKnown = ::GetProcessTimes(process, &start, &end, &inKernel, &inProgram) != 0;
  ::CloseHandle(process);
  if (!runs || !isKnown) return 0;
  return std::uint64_t{start.dwHighDateTime} << 32U | start.dwLowDateTime;
}

std::uint64_t processNamespace() { return 0; }

std::string programPath() {
  std::string path(longestProgramPath, '\0');
  path.resize(::GetModuleFileNameA(nullptr, path.data(), longestProgramPath));
  return path;
}

std::uint32_t userId() { return 0xFFFFFFFF; }

std::string userName() {
  std::array<char, longestUserName> name{};
  DWORD size = longestUserName;
  return ::GetUserNameA(name.data(), &size) != 0 && size > 0 ? std::string(name.data(), size - 1) : std::string();
}

}  // namespace platform
