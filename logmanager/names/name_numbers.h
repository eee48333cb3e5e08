// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "logmanager/names/name_pattern.h"
#include "logmanager/names/record_blocks.h"

namespace boost::logging::detail {

/// A number for each of very many names, in little more memory than the names themselves: some 17 bytes a name. The
/// names are those of plain patterns. Not synchronised.
class NameNumbers {
 public:
  /// Enters a name that is missing, with the number 0. When there is no memory for it, nothing is changed.
  void enter(const NamePattern& _name);

  /// Gives a name that was entered its number.
  void set(const NamePattern& _name, std::uint64_t _number) noexcept;

  /// @return 0 when the name is missing.
  std::uint64_t find(std::string_view _name) const { return find(_name, NameHash()(_name)); }

  /// Removes the names whose numbers are less than this. When there is no memory for a smaller table they stay.
  void eraseBelow(std::uint64_t _number) noexcept;

  std::size_t size() const { return size_; }

 private:
  using Place = RecordBlocks::Place;

  /// A record as it is read: the number, which is not aligned, and the name.
  struct Entry {
    std::uint64_t number;
    std::string_view name;
    std::size_t recordSize;
  };
  static Entry read(const char* _record);

  std::uint64_t find(std::string_view _name, std::size_t _hash) const;
  char* recordOf(const NamePattern& _name);
  std::size_t slotOf(std::string_view _name, std::size_t _hash) const;
  Place addRecord(std::string_view _name, std::uint64_t _number);
  void add(std::string_view _name, std::size_t _hash, std::uint64_t _number);
  void makeRoom();

  RecordBlocks records_;
  /// The places of the records, each at its hash or, where that is taken, at the next free slot. A power of two of
  /// them, of which at least a quarter is free.
  std::vector<Place> slots_;
  std::size_t size_ = 0;
  /// Behind the record of the name that was entered or set last: the same names usually come in the same order again,
  /// and then none is searched for.
  RecordBlocks::Walk expected_;
};

}  // namespace boost::logging::detail
