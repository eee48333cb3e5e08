// SPDX-License-Identifier: MIT
#include "platform/linux/version_note.h"

#include <elf.h>

#include <array>
#include <cstring>
#include <vector>

namespace platform {
namespace {

// A number in the file: where it begins, counted from the start of its structure, and its size in bytes.
struct Field {
  std::size_t offset;
  std::size_t size;
};

// Where the numbers stand that differ between the two classes of files.
struct Layout {
  Field tableOffset;
  Field entrySize;
  Field entryCount;
  std::uint64_t entrySizeOfClass;
  Field type;
  Field contentOffset;
  Field contentSize;
  Field alignment;
};

constexpr Layout layout32{{28, 4}, {42, 2}, {44, 2}, sizeof(Elf32_Phdr), {0, 4}, {4, 4}, {16, 4}, {28, 4}};
constexpr Layout layout64{{32, 8}, {54, 2}, {56, 2}, sizeof(Elf64_Phdr), {0, 4}, {8, 8}, {32, 8}, {48, 8}};

// Far more than binaries have: a dozen segments, and some hundred bytes of notes.
constexpr std::uint64_t largestEntryCount = 1024;
constexpr std::uint64_t largestContent = 0x10000;
constexpr std::size_t noteHeaderSize = 12;
constexpr std::size_t noteDescriptorSize = 16;

constexpr std::uint64_t roundedUp(std::uint64_t _number, std::uint64_t _alignment) {
  return (_number + _alignment - 1) / _alignment * _alignment;
}

class ElfFile {
 public:
  explicit ElfFile(const ReadAt& _readAt) : readAt_(_readAt) {}

  bool findVersion(FixedVersion& _version) {
    std::uint64_t table = 0;
    std::uint64_t entrySize = 0;
    std::uint64_t entryCount = 0;
    if (!identify() || !readNumber(0, layout_->tableOffset, table) || !readNumber(0, layout_->entrySize, entrySize) ||
        !readNumber(0, layout_->entryCount, entryCount) || entrySize != layout_->entrySizeOfClass ||
        entryCount > largestEntryCount) {
      return false;
    }
    for (std::uint64_t entry = 0; entry < entryCount; ++entry) {
      if (findVersionInSegment(table + entry * entrySize, _version)) return true;
    }
    return false;
  }

 private:
  bool identify() {
    std::array<unsigned char, EI_NIDENT> identity{};
    if (!readAt_(0, identity.data(), identity.size()) || std::memcmp(identity.data(), ELFMAG, SELFMAG) != 0) {
      return false;
    }
    layout_ = identity[EI_CLASS] == ELFCLASS64 ? &layout64 : &layout32;
    bigEndian_ = identity[EI_DATA] == ELFDATA2MSB;
    return (layout_ == &layout64 || identity[EI_CLASS] == ELFCLASS32) &&
           (bigEndian_ || identity[EI_DATA] == ELFDATA2LSB);
  }

  std::uint64_t number(const unsigned char* _bytes, std::size_t _size) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < _size; ++i) {
      value = value << 8 | _bytes[bigEndian_ ? i : _size - 1 - i];
    }
    return value;
  }

  bool readNumber(std::uint64_t _structure, Field _field, std::uint64_t& _value) const {
    std::array<unsigned char, sizeof _value> bytes{};
    if (!readAt_(_structure + _field.offset, bytes.data(), _field.size)) return false;
    _value = number(bytes.data(), _field.size);
    return true;
  }

  bool findVersionInSegment(std::uint64_t _header, FixedVersion& _version) const {
    std::uint64_t type = 0;
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    std::uint64_t alignment = 0;
    if (!readNumber(_header, layout_->type, type) || type != PT_NOTE ||
        !readNumber(_header, layout_->contentOffset, offset) || !readNumber(_header, layout_->contentSize, size) ||
        !readNumber(_header, layout_->alignment, alignment) || size > largestContent) {
      return false;
    }
    std::vector<unsigned char> notes(static_cast<std::size_t>(size));
    return readAt_(offset, notes.data(), notes.size()) && findVersionInNotes(notes, alignment == 8 ? 8 : 4, _version);
  }

  // The parts of a note begin at multiples of the alignment.
  bool findVersionInNotes(const std::vector<unsigned char>& _notes, std::uint64_t _alignment,
                          FixedVersion& _version) const {
    for (std::uint64_t at = 0; at + noteHeaderSize <= _notes.size();) {
      const unsigned char* const note = _notes.data() + at;
      const std::uint64_t ownerSize = number(note, 4);
      const std::uint64_t descriptorSize = number(note + 4, 4);
      const std::uint64_t descriptor = roundedUp(at + noteHeaderSize + ownerSize, _alignment);
      if (descriptor + descriptorSize > _notes.size()) return false;
      if (number(note + 8, 4) == versionNoteType && descriptorSize == noteDescriptorSize &&
          ownerSize == sizeof versionNoteOwner &&
          std::memcmp(note + noteHeaderSize, versionNoteOwner, ownerSize) == 0) {
        _version = versionAt(_notes.data() + descriptor);
        return true;
      }
      at = roundedUp(descriptor + descriptorSize, _alignment);
    }
    return false;
  }

  FixedVersion versionAt(const unsigned char* _descriptor) const {
    const auto word = [&](std::size_t _index) {
      return static_cast<std::uint32_t>(number(_descriptor + 4 * _index, 4));
    };
    return {word(0), word(1), word(2), word(3)};
  }

  const ReadAt& readAt_;
  const Layout* layout_ = nullptr;
  bool bigEndian_ = false;
};

}  // namespace

bool readVersionNote(const ReadAt& _readAt, FixedVersion& _version) { return ElfFile(_readAt).findVersion(_version); }

}  // namespace platform
