// SPDX-License-Identifier: MIT
#include "tools/system/process_list.h"

#include "platform/win32/windows_api.h"
// After windows_api.h, on whose types it relies.
#include <tlhelp32.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace toolsystem {
namespace {

constexpr std::uint32_t noUserId = 0xFFFFFFFF;

// A handle of the system that is closed at the end.
class Closed {
 public:
  explicit Closed(HANDLE _handle) : handle_(_handle) {}
  ~Closed() {
    if (isValid()) ::CloseHandle(handle_);
  }
  Closed(const Closed&) = delete;
  Closed& operator=(const Closed&) = delete;

  bool isValid() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

std::string userOf(HANDLE _process) {
  HANDLE token = nullptr;
  if (::OpenProcessToken(_process, TOKEN_QUERY, &token) == 0) return "";
  const Closed closed(token);
  alignas(TOKEN_USER) std::array<char, 512> room{};
  DWORD size = 0;
  if (::GetTokenInformation(token, TokenUser, room.data(), static_cast<DWORD>(room.size()), &size) == 0) return "";
  std::array<char, 256> name{};
  std::array<char, 256> domain{};
  DWORD nameSize = static_cast<DWORD>(name.size());
  DWORD domainSize = static_cast<DWORD>(domain.size());
  SID_NAME_USE use{};
  const auto* const user = reinterpret_cast<const TOKEN_USER*>(room.data());
  if (::LookupAccountSidA(nullptr, user->User.Sid, name.data(), &nameSize, domain.data(), &domainSize, &use) == 0) {
    return "";
  }
  return std::string(name.data(), nameSize);
}

// @return the error of the system; 0 when the modules could be seen.
DWORD findModules(ProcessFacts& _facts) {
  const Closed modules(::CreateToolhelp32Snapshot(TH32CS_SNAPMODULE | TH32CS_SNAPMODULE32, _facts.pid));
  if (!modules.isValid()) return ::GetLastError();
  MODULEENTRY32 module{};
  module.dwSize = sizeof module;
  bool isFirst = true;
  for (BOOL more = ::Module32First(modules.get(), &module); more != 0; more = ::Module32Next(modules.get(), &module)) {
    if (isFirst) _facts.executable = module.szExePath;
    isFirst = false;
    if (::lstrcmpiA(module.szModule, "qmrk_log.dll") == 0) _facts.hasLibrary = true;
  }
  _facts.isReadable = true;
  return 0;
}

ProcessFacts factsOf(const PROCESSENTRY32& _entry) {
  ProcessFacts facts;
  facts.pid = _entry.th32ProcessID;
  facts.userId = noUserId;
  facts.pageUserId = noUserId;
  facts.name = _entry.szExeFile;
  return facts;
}

}  // namespace

std::vector<ProcessFacts> listProcesses(std::optional<std::uint32_t> _only) {
  std::vector<ProcessFacts> processes;
  const Closed snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!snapshot.isValid()) return processes;
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = ::Process32First(snapshot.get(), &entry); more != 0;
       more = ::Process32Next(snapshot.get(), &entry)) {
    if (entry.th32ProcessID == 0 || entry.th32ProcessID == ::GetCurrentProcessId()) continue;
    if (_only && entry.th32ProcessID != *_only) continue;
    ProcessFacts facts = factsOf(entry);
    const DWORD error = findModules(facts);
    if (!facts.hasLibrary && error != ERROR_ACCESS_DENIED) continue;
    const Closed process(::OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, facts.pid));
    if (process.isValid()) facts.user = userOf(process.get());
    processes.push_back(std::move(facts));
  }
  std::sort(processes.begin(), processes.end(),
            [](const ProcessFacts& _one, const ProcessFacts& _other) { return _one.pid < _other.pid; });
  return processes;
}

ProcessFacts factsOfProcess(std::uint32_t _pid) {
  for (ProcessFacts& facts : listProcesses(_pid))
    return std::move(facts);
  ProcessFacts facts;
  facts.pid = _pid;
  facts.userId = noUserId;
  return facts;
}

ProcessFacts placeFacts(std::uint32_t _userId) {
  ProcessFacts facts;
  facts.userId = _userId;
  facts.pageUserId = _userId;
  return facts;
}

Activity activityOf(std::uint32_t _pid) {
  const Closed process(::OpenProcess(SYNCHRONIZE, FALSE, _pid));
  if (!process.isValid()) return ::GetLastError() == ERROR_ACCESS_DENIED ? Activity::running : Activity::ended;
  return ::WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0 ? Activity::ended : Activity::running;
}

std::size_t foreignListeners() { return 0; }

bool seesEveryProcess() { return false; }

}  // namespace toolsystem
