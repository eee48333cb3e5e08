// SPDX-License-Identifier: MIT
#include "platform/linux/version_note.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/linux/elf_image.h"

namespace {

using namespace std::string_literals;

using platform::FixedVersion;
using platform::readVersionNote;
using platform::versionNoteType;
using testsupport::ElfImage;

const std::string& owner() {
  static const auto* const owner = new std::string(platform::versionNoteOwner, sizeof platform::versionNoteOwner);
  return *owner;
}

// Reads from the bytes, and fails the test for any read that a file of that size would not have answered in bounded
// memory.
bool read(const std::string& _bytes, FixedVersion& _version) {
  return readVersionNote(
      [&](std::uint64_t _offset, unsigned char* _buffer, std::size_t _size) {
        EXPECT_LE(_size, 64U * 1024U);
        if (_offset > _bytes.size() || _size > _bytes.size() - _offset) return false;
        if (_size != 0) std::memcpy(_buffer, _bytes.data() + _offset, _size);
        return true;
      },
      _version);
}

bool read(const ElfImage& _image, FixedVersion& _version) { return read(_image.bytes(), _version); }

bool holdsVersion(const ElfImage& _image) {
  FixedVersion version;
  return read(_image, version);
}

ElfImage stamped() {
  ElfImage image;
  image.segment(4).note(owner(), versionNoteType, image.words({0x00010002, 0x00030004, 0x00050006, 0x00070008}));
  return image;
}

void expectNumbers(const FixedVersion& _version) {
  EXPECT_EQ(_version.fileMostSignificant, 0x00010002U);
  EXPECT_EQ(_version.fileLeastSignificant, 0x00030004U);
  EXPECT_EQ(_version.productMostSignificant, 0x00050006U);
  EXPECT_EQ(_version.productLeastSignificant, 0x00070008U);
}

TEST(VersionNote, ComesFromFilesOfBothClassesAndByteOrders) {
  for (const auto fileClass : {ElfImage::Class::bits32, ElfImage::Class::bits64}) {
    for (const auto order : {ElfImage::Order::little, ElfImage::Order::big}) {
      ElfImage image(fileClass, order);
      image.segment(4).note(owner(), versionNoteType, image.words({0x00010002, 0x00030004, 0x00050006, 0x00070008}));
      FixedVersion version;
      ASSERT_TRUE(read(image, version));
      expectNumbers(version);
    }
  }
}

TEST(VersionNote, MayFollowOtherNotesAndSegments) {
  ElfImage image;
  image.segment(8).note("GNU\0"s, 5, "eight bytes more").segment(4);
  image.note("GNU\0"s, 3, "build id of any size").note("odd", 7, "12345").note("", 0, "");
  image.note(owner(), versionNoteType, image.words({0x00010002, 0x00030004, 0x00050006, 0x00070008}));
  FixedVersion version;
  ASSERT_TRUE(read(image, version));
  expectNumbers(version);
}

TEST(VersionNote, MayLieInASegmentAlignedToEight) {
  ElfImage image;
  image.segment(8).note("abc", 9, "x");
  image.note(owner(), versionNoteType, image.words({0x00010002, 0x00030004, 0x00050006, 0x00070008}));
  FixedVersion version;
  ASSERT_TRUE(read(image, version));
  expectNumbers(version);
}

TEST(VersionNote, NeedsTheRightOwnerTypeAndSize) {
  const std::string words = ElfImage().words({1, 2, 3, 4});
  EXPECT_TRUE(holdsVersion(ElfImage().segment(4).note(owner(), versionNoteType, words)));
  EXPECT_FALSE(holdsVersion(ElfImage().segment(4).note("QMRK", versionNoteType, words)));
  EXPECT_FALSE(holdsVersion(ElfImage().segment(4).note("QMRX\0"s, versionNoteType, words)));
  EXPECT_FALSE(holdsVersion(ElfImage().segment(4).note(owner(), versionNoteType + 1, words)));
  EXPECT_FALSE(holdsVersion(ElfImage().segment(4).note(owner(), versionNoteType, words + "more")));
  EXPECT_FALSE(holdsVersion(ElfImage().segment(4).note(owner(), versionNoteType, words.substr(4))));
}

TEST(VersionNote, NeedsAnElfFileThatHasOne) {
  FixedVersion version;
  EXPECT_FALSE(read(std::string(), version));
  EXPECT_FALSE(
      read(std::string("#!/bin/sh\nexit 0\n# and something more to fill a header of sixty-four bytes\n"), version));
  EXPECT_FALSE(holdsVersion(ElfImage()));
  EXPECT_FALSE(holdsVersion(ElfImage().segment(4)));
}

TEST(VersionNote, NeedsAWholeFile) {
  const std::string whole = stamped().bytes();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    FixedVersion version;
    version.fileMostSignificant = 42;
    EXPECT_FALSE(read(whole.substr(0, size), version)) << size;
    EXPECT_EQ(version.fileMostSignificant, 42U);
  }
}

// The sanitizers and the reader above watch.
TEST(VersionNote, ToleratesAnyWrongByte) {
  const std::string whole = stamped().bytes();
  int stillRead = 0;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (int value = 0; value < 256; ++value) {
      std::string bytes = whole;
      bytes[at] = static_cast<char>(value);
      FixedVersion version;
      stillRead += read(bytes, version) ? 1 : 0;
    }
  }
  EXPECT_GT(stillRead, 0);
}

TEST(VersionNote, RefusesSizesBeyondTheFile) {
  const std::string whole = stamped().bytes();
  constexpr std::size_t segmentOffset = 64 + 8;
  constexpr std::size_t segmentSize = 64 + 32;
  constexpr std::size_t ownerSize = 64 + 56;
  constexpr std::size_t descriptorSize = ownerSize + 4;
  constexpr std::size_t tableOffset = 32;
  for (const auto& [at, size] : {std::pair(segmentOffset, 8), std::pair(segmentSize, 8), std::pair(ownerSize, 4),
                                 std::pair(descriptorSize, 4), std::pair(tableOffset, 8)}) {
    std::string bytes = whole;
    bytes.replace(at, static_cast<std::size_t>(size), static_cast<std::size_t>(size), '\xFF');
    FixedVersion version;
    EXPECT_FALSE(read(bytes, version)) << at;
  }
}

TEST(VersionNote, RefusesAHugeTableOfSegments) {
  std::string bytes = stamped().bytes();
  constexpr std::size_t entryCount = 56;
  bytes.replace(entryCount, 2, "\xFF\xFF");
  FixedVersion version;
  EXPECT_FALSE(read(bytes, version));
}

}  // namespace
