// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "logmanager/names/glob.h"
#include "logmanager/names/glob_sort.h"
#include "logmanager/names/record_blocks.h"

namespace boost::logging::detail {

/// The places of very many globs in the order of their two ends, so that a search looks only at globs whose ends fit.
/// Built once. The globs themselves lie elsewhere: each function gets a glob by its place, from std::string_view
/// _globAt(RecordBlocks::Place). Not synchronised.
class SortedGlobs {
 public:
  using Place = RecordBlocks::Place;

  void reserve(std::size_t _count) { places_.reserve(_count); }

  /// Adds a glob. Call sort after all of them.
  void add(Place _place) { places_.push_back(_place); }

  void clear() { places_.clear(); }

  /// Of equal globs, keeps the one at the greatest place.
  template <typename GlobAt>
  void sort(GlobAt _globAt) {
    GlobSort<GlobAt>(_globAt).sort(places_);
    const auto isSame = [&](Place _left, Place _right) { return _globAt(_left) == _globAt(_right); };
    places_.erase(std::unique(places_.begin(), places_.end(), isSame), places_.end());
  }

  /// Calls _visit(Place) for each glob that matches the text.
  template <typename GlobAt, typename Visit>
  void forEachMatching(std::string_view _text, GlobAt _globAt, Visit _visit) const {
    const auto beginningAt = [&](Place _place) { return globBeginning(_globAt(_place)); };
    const auto endingAt = [&](Place _place) { return globEnding(_globAt(_place)); };
    forEachPart<FromBeginning>(places_, _text, beginningAt, [&](Places _alike) {
      forEachPart<FromEnding>(_alike, _text, endingAt, [&](Places _sameEnds) {
        for (const Place place : _sameEnds)
          if (globMatches(_globAt(place), _text)) _visit(place);
      });
    });
  }

  const std::vector<Place>& places() const { return places_; }

 private:
  using Places = std::span<const Place>;

  /// Calls _visit(Places) for each run of neighbours that have the same key, where the text begins with the key. In an
  /// order from the ending, "begins" means "ends".
  template <typename Side, typename KeyAt, typename Visit>
  static void forEachPart(Places _places, std::string_view _text, KeyAt _keyAt, Visit _visit) {
    // From the longest possible key to shorter ones. The greatest key that is not greater than a part of the text is a
    // part of it, or shows how long the next one can be.
    std::size_t size = _text.size();
    while (true) {
      const auto end = std::ranges::upper_bound(_places, Side::part(_text, size), Side::isLess, _keyAt);
      if (end == _places.begin()) return;
      const std::string_view key = _keyAt(*(end - 1));
      _places = Places(_places.begin(), end);
      if (!Side::has(_text, key)) {
        size = Side::common(key, _text);
        continue;
      }
      const auto first = std::ranges::lower_bound(_places, key, Side::isLess, _keyAt);
      _visit(Places(first, end));
      if (key.empty()) return;
      _places = Places(_places.begin(), first);
      size = key.size() - 1;
    }
  }

  std::vector<Place> places_;
};

}  // namespace boost::logging::detail
