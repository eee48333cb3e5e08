// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "diagnostics/status_page_layout.h"

namespace Quillmark_logging::status {

struct FileValues;

/// An entry of a list of the page.
struct Entry {
  std::string_view text;
  std::uint8_t flags = 0;
};

/// The contents of a status page, put together in memory of one's own. A value. Texts that are too long are cut, lists
/// and files that do not fit are left out, and the page tells so.
class StatusImage {
 public:
  /// A page on which nothing stands but what it is. May throw std::bad_alloc, as no other function does.
  StatusImage();

  void number(const Field& _field, std::uint64_t _value) { put(_field.offset, _field.size, _value); }
  void text(const Field& _field, std::string_view _text) { text(_field, _text, _text.size()); }

  /// The beginning of a text of that size; at least as much of it as there is room for.
  void text(const Field& _field, std::string_view _beginning, std::size_t _wholeSize) {
    textAt(_field.offset, _field.size, _beginning, _wholeSize);
  }

  /// @param _leftOut how many entries the caller has left out itself.
  void list(const Field& _field, const std::vector<Entry>& _entries, std::uint32_t _leftOut = 0);

  /// The files, and the two numbers that belong to them.
  void putFiles(const std::vector<FileValues>& _files);

  /// Copies what differs to a page that tools read meanwhile, so that each of them can tell whether it has read a part
  /// of it only. One thread at a time may write to a page.
  void copyTo(std::uint64_t* _words) const;

 private:
  void put(std::size_t _offset, std::size_t _size, std::uint64_t _value);
  void textAt(std::size_t _offset, std::size_t _size, std::string_view _beginning, std::size_t _wholeSize);

  std::vector<std::uint64_t> words_;
};

}  // namespace Quillmark_logging::status
