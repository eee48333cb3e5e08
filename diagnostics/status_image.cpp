// SPDX-License-Identifier: MIT
#include "diagnostics/status_image.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstring>

#include "diagnostics/status_file_values.h"
#include "diagnostics/status_page_file_entry.h"

namespace Quillmark_logging::status {
namespace {

static_assert(std::endian::native == std::endian::little, "numbers of the page are little-endian");

using Word = std::atomic_ref<std::uint64_t>;
static_assert(Word::is_always_lock_free, "the words are shared between processes");

constexpr std::size_t wordCount = pageSize / sizeof(std::uint64_t);
constexpr std::size_t sequenceWord = sequence.offset / sizeof(std::uint64_t);
constexpr std::size_t longestEntry = 0xFFFF;

}  // namespace

StatusImage::StatusImage() : words_(wordCount) {
  std::memcpy(words_.data(), magic.data(), magic.size());
  number(version, layoutVersion);
  number(size, pageSize);
}

void StatusImage::list(const Field& _field, const std::vector<Entry>& _entries, std::uint32_t _leftOut) {
  const std::size_t begin = _field.offset + listHead;
  const std::size_t end = _field.offset + _field.size;
  char* const bytes = reinterpret_cast<char*>(words_.data());
  std::size_t place = begin;
  std::uint32_t count = 0;
  for (const Entry& entry : _entries) {
    if (entry.text.size() > longestEntry || entryHead + entry.text.size() > end - place) {
      ++_leftOut;
      continue;
    }
    const auto textSize = static_cast<std::uint16_t>(entry.text.size());
    std::memcpy(bytes + place, &textSize, sizeof textSize);
    std::memcpy(bytes + place + sizeof textSize, &entry.flags, sizeof entry.flags);
    std::memcpy(bytes + place + entryHead, entry.text.data(), textSize);
    place += entryHead + textSize;
    ++count;
  }
  put(_field.offset, 4, count);
  put(_field.offset + 4, 4, _leftOut);
  put(_field.offset + 8, 4, place - begin);
}

void StatusImage::putFiles(const std::vector<FileValues>& _files) {
  const std::size_t count = std::min<std::size_t>(_files.size(), fileCount);
  for (std::size_t i = 0; i < count; ++i) {
    const FileValues& file = _files[i];
    const std::size_t base = files.offset + i * fileSize;
    put(base + fileKind.offset, fileKind.size, static_cast<std::uint32_t>(file.kind));
    put(base + fileState.offset, fileState.size, file.state);
    put(base + fileLost.offset, fileLost.size, file.lost);
    put(base + fileDropped.offset, fileDropped.size, file.dropped);
    put(base + fileFailedAt.offset, fileFailedAt.size, static_cast<std::uint64_t>(file.failedAt));
    put(base + fileHeld.offset, fileHeld.size, file.held);
    put(base + fileError.offset, fileError.size, file.error);
    textAt(base + filePath.offset, filePath.size, file.path, file.path.size());
  }
  number(filesUsed, count);
  number(filesLeftOut, _files.size() - count);
}

// A sequence lock: who reads the same even number before and after its copy has a whole one. The words are atomic, so
// that reading them meanwhile is no race; each is released, so that who sees it sees the odd number as well.
void StatusImage::copyTo(std::uint64_t* _words) const {
  const Word counter(_words[sequenceWord]);
  const std::uint64_t former = counter.load(std::memory_order_relaxed);
  counter.store(former + 1, std::memory_order_relaxed);
  for (std::size_t i = 0; i < wordCount; ++i) {
    const Word word(_words[i]);
    if (i != sequenceWord && word.load(std::memory_order_relaxed) != words_[i]) {
      word.store(words_[i], std::memory_order_release);
    }
  }
  counter.store(former + 2, std::memory_order_release);
}

void StatusImage::put(std::size_t _offset, std::size_t _size, std::uint64_t _value) {
  std::memcpy(reinterpret_cast<char*>(words_.data()) + _offset, &_value, _size);
}

void StatusImage::textAt(std::size_t _offset, std::size_t _size, std::string_view _beginning, std::size_t _wholeSize) {
  const std::size_t stored = std::min(_beginning.size(), _size - textHead);
  put(_offset, 4, stored);
  put(_offset + 4, 4, std::min<std::size_t>(_wholeSize, 0xFFFFFFFF));
  if (stored > 0) {
    std::memcpy(reinterpret_cast<char*>(words_.data()) + _offset + textHead, _beginning.data(), stored);
  }
}

}  // namespace Quillmark_logging::status
