// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

#include "logmanager/names/glob_keys.h"
#include "logmanager/names/record_blocks.h"

namespace boost::logging::detail {

/// Sorts the places of globs by the part before the first "*", then by the part after the last one, from its end, then
/// by the whole glob, then by the place, the greatest first. std::string_view _globAt(RecordBlocks::Place) gives a
/// glob.
///
/// Byte by byte: the places are parted by the first byte of their globs, each part by the next byte, and so on;
/// bytes that a whole part has in common are skipped. A million globs that lie anywhere in memory take a fifth of the
/// time that comparisons of two of them take.
template <typename GlobAt>
class GlobSort {
 public:
  using Place = RecordBlocks::Place;
  using Places = std::span<Place>;

  explicit GlobSort(GlobAt _globAt) : globAt_(_globAt) {}

  void sort(Places _places) const { sortFrom<Beginning>(_places, 0); }

 private:
  struct Beginning : BeginningKeys {
    static void sortSame(const GlobSort& _sort, Places _places) { _sort.sortFrom<Ending>(_places, 0); }
  };

  struct Ending : EndingKeys {
    static void sortSame(const GlobSort& _sort, Places _places) { _sort.sortWhole(_places); }
  };

  void sortWhole(Places _places) const {
    std::ranges::sort(_places, [this](Place _left, Place _right) {
      const int order = globAt_(_left).compare(globAt_(_right));
      return order != 0 ? order < 0 : _left > _right;
    });
  }

  struct Part {
    Places places;
    std::size_t depth;
  };

  /// Sorts globs whose sides have the first bytes in common, as many as the depth.
  template <typename Side>
  void sortFrom(Places _places, std::size_t _depth) const {
    Part part{_places, _depth};
    while (part.places.size() > 1) {
      const unsigned int key = Side::keyAt(globAt_(part.places[part.places.size() / 2]), part.depth);
      const auto [less, greater] = partBy<Side>(part, key);
      if (key != noByte && greater - less == part.places.size()) {
        part.depth = commonDepthOf<Side>(part);
        continue;
      }
      std::array<Part, 3> parts{{{part.places.first(less), part.depth},
                                 {part.places.subspan(less, greater - less), part.depth + 1},
                                 {part.places.subspan(greater), part.depth}}};
      if (key == noByte) {
        Side::sortSame(*this, parts[1].places);
        parts[1].places = {};
      }
      // The largest part last and here, so that calls are nested only as deep as a number of places can be halved.
      std::ranges::sort(parts, std::less(), [](const Part& _part) { return _part.places.size(); });
      sortFrom<Side>(parts[0].places, parts[0].depth);
      sortFrom<Side>(parts[1].places, parts[1].depth);
      part = parts[2];
    }
  }

  /// Brings those with a lesser key to the front and those with a greater one to the back.
  /// @return where those with the same key begin and end.
  template <typename Side>
  std::pair<std::size_t, std::size_t> partBy(const Part& _part, unsigned int _key) const {
    std::size_t less = 0;
    std::size_t greater = _part.places.size();
    for (std::size_t at = 0; at < greater;) {
      const unsigned int key = Side::keyAt(globAt_(_part.places[at]), _part.depth);
      if (key < _key) {
        std::swap(_part.places[less++], _part.places[at++]);
      } else if (key > _key) {
        std::swap(_part.places[at], _part.places[--greater]);
      } else {
        ++at;
      }
    }
    return {less, greater};
  }

  /// How many bytes the sides of all globs have in common. Looks at each glob once, however many bytes they are.
  template <typename Side>
  std::size_t commonDepthOf(const Part& _part) const {
    const std::string_view first = globAt_(_part.places.front());
    std::size_t depth = first.size();
    for (const Place place : _part.places.subspan(1))
      depth = commonDepth<Side>(first, globAt_(place), _part.depth, depth);
    return depth;
  }

  GlobAt globAt_;
};

}  // namespace boost::logging::detail
