// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace testsupport {

/// A small ELF file with notes and nothing else, in memory.
class ElfImage {
 public:
  enum class Class : unsigned char { bits32 = 1, bits64 = 2 };
  enum class Order : unsigned char { little = 1, big = 2 };

  explicit ElfImage(Class _class = Class::bits64, Order _order = Order::little) : class_(_class), order_(_order) {}

  /// Begins a segment of notes aligned to 4 or 8 bytes; the notes added next belong to it.
  ElfImage& segment(std::uint64_t _alignment);
  /// Adds a note.
  /// @param _owner with its final NUL, if it has one.
  ElfImage& note(const std::string& _owner, std::uint32_t _type, const std::string& _descriptor);
  /// The descriptor of a version note.
  std::string words(const std::vector<std::uint32_t>& _words) const;

  std::string bytes() const;

 private:
  struct Segment {
    std::uint64_t alignment;
    std::string notes;
  };

  std::string number(std::uint64_t _value, std::size_t _size) const;
  std::string programHeader(const Segment& _segment, std::uint64_t _offset) const;
  std::string fileHeader() const;

  Class class_;
  Order order_;
  std::vector<Segment> segments_;
};

}  // namespace testsupport
