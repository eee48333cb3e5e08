// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "diagnostics/status_page_file_entry.h"
#include "diagnostics/status_page_layout.h"

namespace testsupport {

namespace status = Quillmark_logging::status;

/// The bytes of a status page, written field by field as docs/status-page.md says, by other code than the product's.
class PageImage {
 public:
  /// An empty page that nobody writes.
  PageImage() : bytes_(status::pageSize, '\0') {
    bytes_.replace(0, status::magic.size(), status::magic);
    number(status::version, status::layoutVersion);
    number(status::size, status::pageSize);
    number(status::sequence, 2);
  }

  PageImage& number(const status::Field& _field, std::uint64_t _value, std::size_t _base = 0) {
    put(_base + _field.offset, _field.size, _value);
    return *this;
  }

  PageImage& text(const status::Field& _field, std::string_view _text, std::size_t _base = 0) {
    return text(_field, _text, static_cast<std::uint32_t>(_text.size()), static_cast<std::uint32_t>(_text.size()),
                _base);
  }

  /// With sizes of one's own choice.
  PageImage& text(const status::Field& _field, std::string_view _text, std::uint32_t _stored, std::uint32_t _whole,
                  std::size_t _base = 0) {
    put(_base + _field.offset, 4, _stored);
    put(_base + _field.offset + 4, 4, _whole);
    bytes_.replace(_base + _field.offset + 8, _text.size(), _text);
    return *this;
  }

  PageImage& listHead(const status::Field& _field, std::uint32_t _entries, std::uint32_t _leftOut,
                      std::uint32_t _used) {
    put(_field.offset, 4, _entries);
    put(_field.offset + 4, 4, _leftOut);
    put(_field.offset + 8, 4, _used);
    return *this;
  }

  PageImage& raw(std::size_t _offset, std::string_view _bytes) {
    bytes_.replace(_offset, _bytes.size(), _bytes);
    return *this;
  }

  const std::string& bytes() const { return bytes_; }

 private:
  void put(std::size_t _offset, std::size_t _size, std::uint64_t _value) {
    for (std::size_t i = 0; i < _size; ++i)
      bytes_[_offset + i] = static_cast<char>(_value >> (8 * i) & 0xFFU);
  }

  std::string bytes_;
};

}  // namespace testsupport
