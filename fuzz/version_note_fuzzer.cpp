// SPDX-License-Identifier: MIT
// Any bytes as a file: the reader of the version note asks for nothing that it has no buffer for, and ends.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "platform/linux/version_note.h"

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  constexpr std::size_t largestRead = 0x10000;
  platform::FixedVersion version;
  platform::readVersionNote(
      [=](std::uint64_t _offset, unsigned char* _buffer, std::size_t _wanted) {
        if (_wanted > largestRead) std::abort();
        if (_offset > _size || _wanted > _size - _offset) return false;
        if (_wanted > 0) std::memcpy(_buffer, _data + _offset, _wanted);
        return true;
      },
      version);
  return 0;
}
