// SPDX-License-Identifier: MIT
#include "platform/status_mapping.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {

// A section is found by its name from its beginning on; until the first writing it holds nothing that a tool takes for
// a page.
std::unique_ptr<StatusMapping> StatusMapping::create(const Form& _form) {
  if (injectedFault(Call::createStatusPage) != noError) return nullptr;
  const std::string name = "Local\\QMRK_LOG_STATUS." + std::to_string(::GetCurrentProcessId());
  std::unique_ptr<StatusMapping> mapping(new StatusMapping);
  const auto size = static_cast<DWORD>(_form.size);
  mapping->section_ = ::CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, size, name.c_str());
  // One that exists is another's: of a process with this id before, which a tool is just reading.
  if (mapping->section_ == nullptr || ::GetLastError() == ERROR_ALREADY_EXISTS) return nullptr;
  mapping->words_ = static_cast<std::uint64_t*>(::MapViewOfFile(mapping->section_, FILE_MAP_WRITE, 0, 0, _form.size));
  return mapping->words_ != nullptr ? std::move(mapping) : nullptr;
}

StatusMapping::~StatusMapping() {
  if (words_ != nullptr) ::UnmapViewOfFile(words_);
  if (section_ != nullptr) ::CloseHandle(section_);
}

bool StatusMapping::show() { return true; }

bool StatusMapping::isInPlace() const { return true; }

}  // namespace platform
