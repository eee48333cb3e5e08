// SPDX-License-Identifier: MIT
#include "platform/win32/status_page_copy.h"

#include <atomic>
#include <cstring>

namespace platform {
namespace {

std::atomic_ref<std::uint64_t> wordAt(const char* _page, std::size_t _offset) {
  return std::atomic_ref<std::uint64_t>(*reinterpret_cast<std::uint64_t*>(const_cast<char*>(_page) + _offset));
}

}  // namespace

std::string statusSectionName(std::uint32_t _processId) {
  return "Local\\QMRK_LOG_STATUS." + std::to_string(_processId);
}

std::uint64_t statusSequence(const char* _page, const StatusPageForm& _form) {
  return wordAt(_page, _form.sequenceOffset).load(std::memory_order_acquire);
}

// Word by word, as the process that shows the page writes it.
bool tryToCopyStatusPage(const char* _page, const StatusPageForm& _form, std::string& _bytes) {
  const std::uint64_t before = statusSequence(_page, _form);
  if (before % 2 != 0) return false;
  _bytes.resize(_form.size);
  for (std::size_t offset = 0; offset < _bytes.size(); offset += sizeof(std::uint64_t)) {
    const std::uint64_t value = wordAt(_page, offset).load(std::memory_order_relaxed);
    std::memcpy(_bytes.data() + offset, &value, sizeof value);
  }
  std::atomic_thread_fence(std::memory_order_acquire);
  return wordAt(_page, _form.sequenceOffset).load(std::memory_order_relaxed) == before;
}

}  // namespace platform
