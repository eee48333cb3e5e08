// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace boost::logging::detail {

/// Lets tables of names be asked by a part of a name without a copy.
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view _name) const { return std::hash<std::string_view>()(_name); }
};

}  // namespace boost::logging::detail
