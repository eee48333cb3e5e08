// SPDX-License-Identifier: MIT
#include "platform/status_pages.h"

#include "platform/win32/status_page_copy.h"
#include "platform/win32/windows_api.h"
// After windows_api.h, on whose types it relies.
#include <tlhelp32.h>

namespace platform {
namespace {

constexpr DWORD betweenTries = 1;
constexpr int mostTries = 50;

std::vector<std::uint32_t> runningProcesses() {
  std::vector<std::uint32_t> ids;
  const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  if (snapshot == INVALID_HANDLE_VALUE) return ids;
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = ::Process32First(snapshot, &entry); more != 0; more = ::Process32Next(snapshot, &entry)) {
    ids.push_back(entry.th32ProcessID);
  }
  ::CloseHandle(snapshot);
  return ids;
}

ErrorCode copyWhole(const char* _page, const StatusPageForm& _form, std::string& _bytes) {
  for (int tries = 0; tries < mostTries; ++tries) {
    if (tries > 0) ::Sleep(betweenTries);
    if (tryToCopyStatusPage(_page, _form, _bytes)) return noError;
  }
  return errorBusy;
}

}  // namespace

std::vector<StatusPageCopy> copyStatusPages(const StatusPagePlace& /*_place*/, const StatusPageForm& _form) {
  std::vector<StatusPageCopy> copies;
  for (const std::uint32_t id : runningProcesses()) {
    StatusPageCopy copy;
    copy.pageProcessId = id;
    copy.processId = id;
    copy.userId = 0xFFFFFFFF;
    copy.path = statusSectionName(id);
    const HANDLE section = ::OpenFileMappingA(FILE_MAP_READ, FALSE, copy.path.c_str());
    if (section == nullptr) {
      // Most processes have no page.
      if (::GetLastError() != ERROR_ACCESS_DENIED) continue;
      copy.error = errorAccessDenied;
      copies.push_back(copy);
      continue;
    }
    // Fails when the section is smaller.
    void* const page = ::MapViewOfFile(section, FILE_MAP_READ, 0, 0, _form.size);
    copy.error = page != nullptr ? copyWhole(static_cast<const char*>(page), _form, copy.bytes) : errorNotTrusted;
    if (copy.error != noError) copy.bytes.clear();
    copy.isInUse = true;
    if (page != nullptr) ::UnmapViewOfFile(page);
    ::CloseHandle(section);
    copies.push_back(copy);
  }
  return copies;
}

}  // namespace platform
