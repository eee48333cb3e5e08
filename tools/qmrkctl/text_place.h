// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace qmrkctl {

/// A place in a text, counted from 1; the column counts bytes.
struct TextPlace {
  int line = 1;
  int column = 1;
};

/// Finds places in one text.
class TextPlaces {
 public:
  /// @param _text is not kept.
  explicit TextPlaces(std::string_view _text);

  /// The place of a byte position, which may be the end of the text.
  TextPlace of(std::size_t _position) const;

 private:
  std::vector<std::size_t> lineBegins_;
};

}  // namespace qmrkctl
