// SPDX-License-Identifier: MIT
#include "tests/support/companion_process.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/win32/windows_api.h"

// Handles have 32 significant bits, also in 64-bit processes, so they fit into the numbers of the header.

namespace testsupport {
namespace {

constexpr UINT killed = static_cast<UINT>(-1);

HANDLE handleOf(long _number) { return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(_number)); }

long numberOf(HANDLE _handle) { return static_cast<long>(reinterpret_cast<std::intptr_t>(_handle)); }

void orAbort(bool _done, const char* _what) {
  if (_done) return;
  std::fprintf(stderr, "%s failed with error %lu\n", _what, ::GetLastError());
  std::abort();
}

struct Pipe {
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
};

Pipe makePipe() {
  Pipe pipe;
  orAbort(::CreatePipe(&pipe.readEnd, &pipe.writeEnd, nullptr, 1 << 16) != 0, "CreatePipe");
  return pipe;
}

HANDLE inheritable(HANDLE _handle) {
  orAbort(::SetHandleInformation(_handle, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) != 0, "SetHandleInformation");
  return _handle;
}

std::string commandLine(const std::vector<std::string>& _command) {
  std::string line;
  for (const std::string& word : _command) {
    line += (line.empty() ? "\"" : " \"") + word + "\"";
  }
  return line;
}

}  // namespace

CompanionProcess::CompanionProcess(const std::vector<std::string>& _command) {
  const Pipe toChild = makePipe();
  const Pipe fromChild = makePipe();
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = inheritable(toChild.readEnd);
  startup.hStdOutput = inheritable(fromChild.writeEnd);
  startup.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION child{};
  std::string line = commandLine(_command);
  orAbort(::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &child) != 0,
          "CreateProcess");
  ::CloseHandle(child.hThread);
  ::CloseHandle(toChild.readEnd);
  ::CloseHandle(fromChild.writeEnd);
  process_ = numberOf(child.hProcess);
  input_ = static_cast<int>(numberOf(toChild.writeEnd));
  output_ = static_cast<int>(numberOf(fromChild.readEnd));
}

void CompanionProcess::closeIfOpen(int& _end) {
  if (_end >= 0) ::CloseHandle(handleOf(std::exchange(_end, -1)));
}

void CompanionProcess::send(const std::string& _line) {
  const std::string bytes = _line + "\n";
  DWORD written = 0;
  ::WriteFile(handleOf(input_), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::string CompanionProcess::readLine(int _milliseconds) {
  const ULONGLONG deadline = ::GetTickCount64() + static_cast<ULONGLONG>(_milliseconds);
  for (;;) {
    std::string line;
    if (takeLine(line)) return line;
    DWORD available = 0;
    if (!::PeekNamedPipe(handleOf(output_), nullptr, 0, nullptr, &available, nullptr)) return "<end>";
    if (available == 0) {
      if (::GetTickCount64() >= deadline) return "<nothing>";
      ::Sleep(1);
      continue;
    }
    std::array<char, 4096> bytes{};
    DWORD got = 0;
    if (!::ReadFile(handleOf(output_), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr)) return "<end>";
    buffered_.append(bytes.data(), got);
  }
}

void CompanionProcess::kill() {
  if (process_ > 0) {
    ::TerminateProcess(handleOf(process_), killed);
    finish();
  }
}

int CompanionProcess::finish() {
  closeIfOpen(input_);
  if (process_ <= 0) return -1;
  const HANDLE process = handleOf(std::exchange(process_, -1));
  DWORD code = killed;
  ::WaitForSingleObject(process, INFINITE);
  ::GetExitCodeProcess(process, &code);
  ::CloseHandle(process);
  return static_cast<int>(code);
}

// No documented call tells what a thread of another process does. This only makes it likely that it sleeps; a test that
// must know it cannot run here.
bool CompanionProcess::waitUntilAsleep() const {
  ::Sleep(20);
  return process_ > 0;
}

}  // namespace testsupport
