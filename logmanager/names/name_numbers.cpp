// SPDX-License-Identifier: MIT
#include "logmanager/names/name_numbers.h"

#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "logmanager/names/short_number.h"

namespace boost::logging::detail {
namespace {

constexpr RecordBlocks::Place freeSlot = std::numeric_limits<RecordBlocks::Place>::max();
constexpr std::size_t fewestSlots = 16;

}  // namespace

void NameNumbers::enter(const NamePattern& _name) {
  if (recordOf(_name) == nullptr) add(_name.text(), _name.hash(), 0);
}

void NameNumbers::set(const NamePattern& _name, std::uint64_t _number) noexcept {
  std::memcpy(recordOf(_name), &_number, sizeof _number);
}

void NameNumbers::eraseBelow(std::uint64_t _number) noexcept {
  NameNumbers kept;
  try {
    records_.forEach([&kept, _number](Place, const char* _record) {
      const Entry entry = read(_record);
      if (entry.number >= _number) kept.add(entry.name, NameHash()(entry.name), entry.number);
      return entry.recordSize;
    });
  } catch (const std::bad_alloc&) {
    return;
  }
  *this = std::move(kept);
}

NameNumbers::Entry NameNumbers::read(const char* _record) {
  Entry entry{};
  std::memcpy(&entry.number, _record, sizeof entry.number);
  const char* text = _record + sizeof entry.number;
  const std::size_t size = readShortNumber(text);
  entry.name = std::string_view(text, size);
  entry.recordSize = static_cast<std::size_t>(text - _record) + size;
  return entry;
}

std::uint64_t NameNumbers::find(std::string_view _name, std::size_t _hash) const {
  if (slots_.empty()) return 0;
  const Place place = slots_[slotOf(_name, _hash)];
  return place == freeSlot ? 0 : read(records_.at(place)).number;
}

// Null when the name is missing.
char* NameNumbers::recordOf(const NamePattern& _name) {
  Entry entry{};
  if (expected_.hasRecord()) entry = read(expected_.record);
  if (entry.recordSize == 0 || entry.name != _name.text()) {
    if (slots_.empty()) return nullptr;
    const Place place = slots_[slotOf(_name.text(), _name.hash())];
    if (place == freeSlot) return nullptr;
    expected_ = records_.walkFrom(place);
    entry = read(expected_.record);
  }
  char* const record = expected_.record;
  expected_.skip(entry.recordSize);
  return record;
}

// The slot of a name, or the free one where it is to be entered.
std::size_t NameNumbers::slotOf(std::string_view _name, std::size_t _hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = _hash & mask;
  while (slots_[slot] != freeSlot && read(records_.at(slots_[slot])).name != _name)
    slot = (slot + 1) & mask;
  return slot;
}

NameNumbers::Place NameNumbers::addRecord(std::string_view _name, std::uint64_t _number) {
  char* const record = records_.add(sizeof _number + shortNumberSize(_name.size()) + _name.size());
  std::memcpy(record, &_number, sizeof _number);
  char* const text = writeShortNumber(record + sizeof _number, _name.size());
  _name.copy(text, _name.size());
  return records_.placeOfLatest();
}

void NameNumbers::add(std::string_view _name, std::size_t _hash, std::uint64_t _number) {
  makeRoom();
  slots_[slotOf(_name, _hash)] = addRecord(_name, _number);
  ++size_;
}

void NameNumbers::makeRoom() {
  if (4 * (size_ + 1) <= 3 * slots_.size()) return;
  std::vector<Place> slots(slots_.empty() ? fewestSlots : 2 * slots_.size(), freeSlot);
  const std::size_t mask = slots.size() - 1;
  // By the records, not by the former slots: memory is read in its order.
  records_.forEach([&slots, mask](Place _place, const char* _record) {
    const Entry entry = read(_record);
    std::size_t slot = NameHash()(entry.name) & mask;
    while (slots[slot] != freeSlot)
      slot = (slot + 1) & mask;
    slots[slot] = _place;
    return entry.recordSize;
  });
  slots_ = std::move(slots);
}

}  // namespace boost::logging::detail
