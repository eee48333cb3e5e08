// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

// Let tables of names be asked by a part of a name without a copy, and by a plain pattern by its hash.

struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view _name) const { return std::hash<std::string_view>()(_name); }
  std::size_t operator()(const NamePattern& _pattern) const { return _pattern.hash(); }
};

struct NameEqual {
  using is_transparent = void;
  bool operator()(std::string_view _left, std::string_view _right) const { return _left == _right; }
  bool operator()(const NamePattern& _left, std::string_view _right) const { return _left.text() == _right; }
};

}  // namespace boost::logging::detail
