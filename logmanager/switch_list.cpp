// SPDX-License-Identifier: MIT
#include "logmanager/switch_list.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace boost::logging::detail {
namespace {

auto patternsIn(const RecordBlocks& _records) {
  return [&_records](RecordBlocks::Place _place) { return SetUpCalls::patternAt(_records.at(_place)); };
}

/// How many plain patterns there can be among the calls. Very short ones repeat: a list of nothing but ";" has one.
std::size_t mostPlainPatterns(const SetUpCalls& _calls) {
  // Where the calls take some bytes each, room for all of them is little beside, and they need not be counted.
  constexpr std::size_t fewBytes = 8;
  if (_calls.records()->placeOfLatest() >= fewBytes * _calls.size()) return _calls.size();
  constexpr std::size_t shortest = 3;
  constexpr std::size_t mostShorter = 1 + 256 + 256 * 256;
  std::size_t shorter = 0;
  std::size_t others = 0;
  _calls.forEach([&](const SetUpCalls::Call& _call) {
    if (_call.switches() && _call.pattern.isPlain()) ++(_call.pattern.text().size() < shortest ? shorter : others);
  });
  return others + std::min(shorter, mostShorter);
}

}  // namespace

SwitchList::SwitchList(const SetUpCalls& _calls) {
  build(_calls);
  constexpr std::size_t overruledSlack = 64;
  if (!forAll_ || _calls.size() <= 2 * size() + overruledSlack) return;
  // Does not keep the memory of many calls for the sake of few.
  std::vector<Place> latest(wild_.places());
  std::ranges::copy_if(slots_, std::back_inserter(latest), [this](Place _place) { return _place > begin_; });
  std::ranges::sort(latest);
  SetUpCalls kept;
  kept.enable("*", *forAll_);
  for (const Place place : latest) {
    const SetUpCalls::Call call = SetUpCalls::readAt(records_->at(place));
    kept.enable(call.pattern.text(), call.enables());
  }
  *this = SwitchList(kept);
}

std::optional<bool> SwitchList::find(std::string_view _name) const {
  Place latest = begin_;
  if (plainCount_ > 0) {
    forEachPlainPatternOf(_name, longestPlain_, [this, &latest](std::string_view _text) {
      latest = std::max(latest, slots_[slotOf(_text, NameHash()(_text))]);
    });
  }
  if (!wild_.places().empty()) {
    wild_.forEachMatching(_name, patternsIn(*records_), [&latest](Place _place) { latest = std::max(latest, _place); });
  }
  if (latest == begin_) return std::nullopt;
  return SetUpCalls::readAt(records_->at(latest)).enables();
}

void SwitchList::build(const SetUpCalls& _calls) {
  records_ = _calls.records();
  _calls.forEach([&](const SetUpCalls::Call& _call) {
    if (!_call.switches()) return;
    if (_call.pattern.selectsAll()) {
      beginAt(_call);
    } else if (forAll_ && _call.pattern.isPlain()) {
      if (slots_.empty()) makeSlots(mostPlainPatterns(_calls));
      enterPlain(_call);
    } else if (forAll_) {
      wild_.reserve(_calls.size());
      wild_.add(_call.place);
    }
  });
  if (size() == 0) {
    records_.reset();
  } else {
    wild_.sort(patternsIn(*records_));
  }
}

void SwitchList::beginAt(const SetUpCalls::Call& _call) {
  begin_ = _call.place;
  forAll_ = _call.enables();
  plainCount_ = 0;
  wild_.clear();
}

void SwitchList::enterPlain(const SetUpCalls::Call& _call) {
  Place& slot = slots_[slotOf(_call.pattern.text(), _call.pattern.hash())];
  if (slot <= begin_) ++plainCount_;
  slot = _call.place;
  longestPlain_ = std::max(longestPlain_, _call.pattern.text().size());
}

// At least one slot stays free, so that each search ends.
void SwitchList::makeSlots(std::size_t _patterns) {
  // As many as are needed, not a power of two of them: of a million, that would be twice as many.
  slots_.resize(_patterns + _patterns / 2 + 1);
}

// The slot of a name, or the free one where it is to be entered.
std::size_t SwitchList::slotOf(std::string_view _name, std::size_t _hash) const {
  const auto textAt = patternsIn(*records_);
  std::size_t slot = std::uint64_t{static_cast<std::uint32_t>(_hash)} * slots_.size() >> 32U;
  while (slots_[slot] > begin_ && textAt(slots_[slot]) != _name)
    slot = slot + 1 == slots_.size() ? 0 : slot + 1;
  return slot;
}

}  // namespace boost::logging::detail
