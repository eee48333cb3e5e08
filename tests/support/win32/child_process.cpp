// SPDX-License-Identifier: MIT
#include "tests/support/child_process.h"

#include <windows.h>

#include "tests/support/temporary_folder.h"

namespace testsupport {
namespace {

std::string commandLine(const std::string& _program, const std::vector<std::string>& _arguments) {
  std::string line = "\"" + _program + "\"";
  for (const std::string& argument : _arguments) {
    line += " \"" + argument + "\"";
  }
  return line;
}

HANDLE inheritedFile(const std::string& _path) {
  SECURITY_ATTRIBUTES attributes{sizeof attributes, nullptr, TRUE};
  return ::CreateFileA(_path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

int waitFor(const PROCESS_INFORMATION& _child) {
  DWORD code = static_cast<DWORD>(-1);
  ::WaitForSingleObject(_child.hProcess, INFINITE);
  ::GetExitCodeProcess(_child.hProcess, &code);
  ::CloseHandle(_child.hThread);
  ::CloseHandle(_child.hProcess);
  return static_cast<int>(code);
}

}  // namespace

ChildResult runProgram(const std::string& _program, const std::vector<std::string>& _arguments) {
  const TemporaryFolder folder;
  const std::string output = folder.file("output");
  const std::string errors = folder.file("errors");
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = inheritedFile(output);
  startup.hStdError = inheritedFile(errors);
  PROCESS_INFORMATION child{};
  std::string line = commandLine(_program, _arguments);
  const BOOL started =
      ::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &child);
  ChildResult result;
  if (started) result.exitCode = waitFor(child);
  ::CloseHandle(startup.hStdOutput);
  ::CloseHandle(startup.hStdError);
  result.output = replaced(readFile(output), "\r\n", "\n");
  result.errors = replaced(readFile(errors), "\r\n", "\n");
  return result;
}

}  // namespace testsupport
