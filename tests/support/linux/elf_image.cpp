// SPDX-License-Identifier: MIT
#include "tests/support/linux/elf_image.h"

#include <algorithm>

namespace testsupport {
namespace {

std::string padded(std::string _bytes, std::uint64_t _alignment) {
  _bytes.resize((_bytes.size() + _alignment - 1) / _alignment * _alignment, '\0');
  return _bytes;
}

}  // namespace

ElfImage& ElfImage::segment(std::uint64_t _alignment) {
  segments_.push_back({_alignment, ""});
  return *this;
}

ElfImage& ElfImage::note(const std::string& _owner, std::uint32_t _type, const std::string& _descriptor) {
  auto& [alignment, notes] = segments_.back();
  notes += number(_owner.size(), 4) + number(_descriptor.size(), 4) + number(_type, 4) + _owner;
  notes = padded(notes, alignment) + _descriptor;
  notes = padded(notes, alignment);
  return *this;
}

std::string ElfImage::words(const std::vector<std::uint32_t>& _words) const {
  std::string bytes;
  for (const std::uint32_t word : _words) {
    bytes += number(word, 4);
  }
  return bytes;
}

std::string ElfImage::bytes() const {
  const std::size_t headers = fileHeader().size() + segments_.size() * (class_ == Class::bits64 ? 56 : 32);
  std::string table;
  std::string contents;
  for (const Segment& segment : segments_) {
    table += programHeader(segment, headers + contents.size());
    contents += segment.notes;
  }
  return fileHeader() + table + contents;
}

std::string ElfImage::number(std::uint64_t _value, std::size_t _size) const {
  std::string bytes;
  for (std::size_t i = 0; i < _size; ++i) {
    bytes += static_cast<char>(_value >> 8 * i);
  }
  if (order_ == Order::big) std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

std::string ElfImage::programHeader(const Segment& _segment, std::uint64_t _offset) const {
  constexpr std::uint64_t note = 4;
  constexpr std::uint64_t readable = 4;
  const std::uint64_t size = _segment.notes.size();
  if (class_ == Class::bits64) {
    return number(note, 4) + number(readable, 4) + number(_offset, 8) + number(0, 8) + number(0, 8) + number(size, 8) +
           number(size, 8) + number(_segment.alignment, 8);
  }
  return number(note, 4) + number(_offset, 4) + number(0, 8) + number(size, 4) + number(size, 4) + number(readable, 4) +
         number(_segment.alignment, 4);
}

std::string ElfImage::fileHeader() const {
  const bool wide = class_ == Class::bits64;
  const std::size_t address = wide ? 8 : 4;
  const std::size_t size = wide ? 64 : 52;
  std::string identity =
      "\x7f"
      "ELF";
  identity += {static_cast<char>(class_), static_cast<char>(order_), 1};
  return padded(identity, 16) + number(3, 2) + number(62, 2) + number(1, 4) + number(0, address) +
         number(size, address) + number(0, address) + number(0, 4) + number(size, 2) + number(wide ? 56 : 32, 2) +
         number(segments_.size(), 2) + number(0, 6);
}

}  // namespace testsupport
