// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/text_place.h"

#include <algorithm>

namespace qmrkctl {

TextPlaces::TextPlaces(std::string_view _text) : lineBegins_{0} {
  for (std::size_t end = _text.find('\n'); end != std::string_view::npos; end = _text.find('\n', end + 1))
    lineBegins_.push_back(end + 1);
}

TextPlace TextPlaces::of(std::size_t _position) const {
  const auto next = std::upper_bound(lineBegins_.begin(), lineBegins_.end(), _position);
  return {static_cast<int>(next - lineBegins_.begin()), static_cast<int>(_position - *(next - 1)) + 1};
}

}  // namespace qmrkctl
