// SPDX-License-Identifier: MIT
#include "platform/watched_status_page.h"

#include <cstring>

#include "platform/win32/status_page_copy.h"
#include "platform/win32/windows_api.h"

namespace platform {

struct WatchedStatusPage::Page {
  StatusPageForm form;
  const char* bytes = nullptr;
  std::uint64_t known = 0;  ///< sequence number at the last copy, or when it was opened
};

WatchedStatusPage::WatchedStatusPage(const StatusPagePlace& /*_place*/, std::uint32_t _pageProcessId,
                                     const StatusPageForm& _form)
    : page_(new Page{_form, nullptr, 0}) {
  const std::string name = statusSectionName(_pageProcessId);
  const HANDLE section = ::OpenFileMappingA(FILE_MAP_READ, FALSE, name.c_str());
  if (section == nullptr) return;
  page_->bytes = static_cast<const char*>(::MapViewOfFile(section, FILE_MAP_READ, 0, 0, _form.size));
  ::CloseHandle(section);
  if (page_->bytes != nullptr) page_->known = statusSequence(page_->bytes, _form);
}

WatchedStatusPage::~WatchedStatusPage() {
  if (page_ != nullptr && page_->bytes != nullptr) ::UnmapViewOfFile(page_->bytes);
}

WatchedStatusPage::WatchedStatusPage(WatchedStatusPage&&) noexcept = default;

std::optional<std::string> WatchedStatusPage::newBytes() {
  if (page_->bytes == nullptr) return std::nullopt;
  std::uint64_t sequence = statusSequence(page_->bytes, page_->form);
  if (sequence % 2 != 0 || sequence == page_->known) return std::nullopt;
  std::string bytes;
  if (!tryToCopyStatusPage(page_->bytes, page_->form, bytes)) return std::nullopt;
  // That of the copy, which may be a later one.
  std::memcpy(&sequence, bytes.data() + page_->form.sequenceOffset, sizeof sequence);
  page_->known = sequence;
  return bytes;
}

}  // namespace platform
