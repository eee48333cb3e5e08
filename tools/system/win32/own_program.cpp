// SPDX-License-Identifier: MIT
#include "tools/system/own_program.h"

#include <algorithm>
#include <array>

#include "platform/win32/windows_api.h"

namespace toolsystem {
namespace {

// By the rules by which a program takes its command line apart.
std::string quoted(const std::string& _argument) {
  std::string text = "\"";
  std::size_t backslashes = 0;
  for (const char c : _argument) {
    if (c == '"') text.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text + std::string(backslashes, '\\') + "\"";
}

std::string ownPath() {
  std::array<char, 32768> path{};
  return {path.data(), ::GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()))};
}

std::string readPipe(HANDLE _pipe, std::size_t _most) {
  std::string text;
  std::array<char, 65536> block;
  DWORD size = 0;
  while (::ReadFile(_pipe, block.data(), static_cast<DWORD>(block.size()), &size, nullptr) != 0 && size > 0)
    text.append(block.data(), std::min<std::size_t>(size, _most - text.size()));
  return text;
}

}  // namespace

ProgramResult runOwnProgram(const std::vector<std::string>& _arguments, std::size_t _most) {
  ProgramResult result;
  const std::string program = ownPath();
  std::string commandLine = quoted(program);
  for (const std::string& argument : _arguments)
    commandLine += " " + quoted(argument);
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  if (::CreatePipe(&readEnd, &writeEnd, &inheritable, 0) == 0) return result;
  ::SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = writeEnd;
  startup.hStdError = writeEnd;
  PROCESS_INFORMATION process{};
  const bool isStarted = ::CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                          nullptr, &startup, &process) != 0;
  ::CloseHandle(writeEnd);
  if (isStarted) {
    result.output = readPipe(readEnd, _most);
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    if (::GetExitCodeProcess(process.hProcess, &exitCode) != 0) result.exitCode = static_cast<int>(exitCode);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
  }
  ::CloseHandle(readEnd);
  return result;
}

}  // namespace toolsystem
