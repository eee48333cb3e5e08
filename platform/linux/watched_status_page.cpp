// SPDX-License-Identifier: MIT
#include "platform/watched_status_page.h"

#include <cstring>

#include "platform/linux/status_page_files.h"

namespace platform {

struct WatchedStatusPage::Page {
  StatusPageForm form;
  FileDescriptor file;
  std::uint64_t known = 0;  ///< sequence number at the last copy, or when it was opened
};

WatchedStatusPage::WatchedStatusPage(const StatusPagePlace& _place, std::uint32_t _pageProcessId,
                                     const StatusPageForm& _form)
    : page_(new Page{_form, FileDescriptor(), 0}) {
  const FileDescriptor sharedMemory = openSharedMemory(_place.root);
  if (!sharedMemory.isOpen() || !_place.userId) return;
  StatusUserFolder folder;
  const std::string name = std::string(statusUserFolderPrefix) + std::to_string(*_place.userId);
  const ErrorCode error = openStatusUserFolder(sharedMemory.get(), name, _place.root.empty(), folder);
  if (error != noError || !folder.pages.isOpen()) return;
  struct stat status {};
  FileDescriptor file;
  if (openStatusPage(folder, std::to_string(_pageProcessId), _form, file, status) != noError) return;
  page_->file = std::move(file);
  readStatusSequence(page_->file.get(), _form, page_->known);
}

WatchedStatusPage::~WatchedStatusPage() = default;
WatchedStatusPage::WatchedStatusPage(WatchedStatusPage&&) noexcept = default;

std::optional<std::string> WatchedStatusPage::newBytes() {
  std::uint64_t sequence = 0;
  if (!page_->file.isOpen() || !readStatusSequence(page_->file.get(), page_->form, sequence)) return std::nullopt;
  if (sequence % 2 != 0 || sequence == page_->known) return std::nullopt;
  std::string bytes;
  if (tryToCopyStatusPage(page_->file.get(), page_->form, bytes) != noError) return std::nullopt;
  // That of the copy, which may be a later one.
  std::memcpy(&sequence, bytes.data() + page_->form.sequenceOffset, sizeof sequence);
  page_->known = sequence;
  return bytes;
}

}  // namespace platform
