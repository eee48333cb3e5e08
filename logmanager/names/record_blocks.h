// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <vector>

namespace boost::logging::detail {

/// Records of bytes, one behind the other in blocks of memory: no record moves, and a million of them take little more
/// than their bytes. Not synchronised.
class RecordBlocks {
 public:
  /// Where a record begins. A later record has a greater place.
  using Place = std::uint32_t;

  /// Adds a record of at least one byte, for the caller to fill. When there is no memory for it, nothing is added.
  char* add(std::size_t _size) {
    if (blocks_.empty() || !blocks_.back().hasRoomFor(_size)) addBlock(_size);
    Block& block = blocks_.back();
    char* const record = &block.bytes[block.used];
    latest_ = block.used;
    block.used += _size;
    return record;
  }

  /// Of the record that was added last.
  Place placeOfLatest() const { return static_cast<Place>((blocks_.size() - 1) * positions + latest_); }

  char* at(Place _place) { return &blocks_[_place / positions].bytes[_place % positions]; }
  const char* at(Place _place) const { return &blocks_[_place / positions].bytes[_place % positions]; }

  /// Walks over the records of one block, as far as there are any when it begins.
  struct Walk {
    char* record = nullptr;
    const char* end = nullptr;

    bool hasRecord() const { return record != end; }
    void skip(std::size_t _size) { record += _size; }
  };
  Walk walkFrom(Place _place) {
    const Block& block = blocks_[_place / positions];
    return {&block.bytes[_place % positions], &block.bytes[0] + block.used};
  }

  /// Calls _visit(Place, const char* record) for each record, in order. It returns the size of the record.
  template <typename Visit>
  void forEach(Visit _visit) const {
    for (std::size_t index = 0; index < blocks_.size(); ++index) {
      const Block& block = blocks_[index];
      for (std::size_t position = 0; position < block.used;)
        position += _visit(static_cast<Place>(index * positions + position), &block.bytes[position]);
    }
  }

  /// Forgets a record and all that were added after it.
  void cut(Place _place) noexcept {
    blocks_.resize(_place / positions + 1);
    blocks_.back().used = _place % positions;
  }

 private:
  /// How many places a block has. Only its last record reaches beyond them.
  static constexpr std::size_t positions = 65536;
  static constexpr std::size_t firstBlockSize = 512;

  struct Block {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::size_t used = 0;

    bool hasRoomFor(std::size_t _size) const { return used < positions && size - used >= _size; }
  };

  void addBlock(std::size_t _leastSize) {
    if (blocks_.size() == positions) throw std::bad_alloc();
    const std::size_t usualSize = blocks_.empty() ? firstBlockSize : std::min(positions, 2 * blocks_.back().size);
    const std::size_t size = std::max(_leastSize, usualSize);
    // Not zeroed, so that memory is taken as it is used.
    blocks_.push_back(Block{std::unique_ptr<char[]>(new char[size]), size, 0});
  }

  std::vector<Block> blocks_;
  /// Where the record that was added last begins in its block.
  std::size_t latest_ = 0;
};

}  // namespace boost::logging::detail
