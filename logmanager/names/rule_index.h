// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "logmanager/names/name_hash.h"
#include "logmanager/names/name_order.h"
#include "logmanager/names/name_pattern.h"
#include "logmanager/names/wild_index.h"

namespace boost::logging::detail {

/// One value per pattern, found by the names that the pattern selects. To find them costs as much as the patterns whose
/// literal beginning or ending the name has, not as all patterns. Not synchronised.
template <typename Value>
class RuleIndex {
 public:
  /// The value of a pattern, made by default when it has none. The reference holds until the value is erased.
  Value& at(const NamePattern& _pattern) {
    if (!_pattern.isPlain()) return isByBeginning(_pattern) ? byBeginning_.at(_pattern) : byEnding_.at(_pattern);
    longestPlain_ = std::max(longestPlain_, _pattern.text().size());
    return plain_[_pattern.text()];
  }

  void erase(const NamePattern& _pattern) {
    if (_pattern.isPlain()) {
      plain_.erase(_pattern.text());
    } else if (isByBeginning(_pattern)) {
      byBeginning_.erase(_pattern);
    } else {
      byEnding_.erase(_pattern);
    }
  }

  void clear() {
    plain_.clear();
    longestPlain_ = 0;
    byBeginning_.clear();
    byEnding_.clear();
  }

  /// Calls _visit(Value&) for each pattern that selects the name.
  template <typename Visit>
  void forEachSelecting(std::string_view _name, Visit _visit) {
    visitPlain(_name, _visit);
    for (std::size_t dot = _name.find('.', 1); dot <= longestPlain_ && dot != std::string_view::npos;
         dot = _name.find('.', dot + 1)) {
      visitPlain(_name.substr(0, dot), _visit);
    }
    byBeginning_.forEachSelecting(_name, _visit);
    byEnding_.forEachSelecting(_name, _visit);
  }

  /// How many patterns have a value.
  std::size_t size() const { return plain_.size() + byBeginning_.size() + byEnding_.size(); }

 private:
  template <typename Visit>
  void visitPlain(std::string_view _text, Visit& _visit) {
    const auto place = plain_.find(_text);
    if (place != plain_.end()) _visit(place->second);
  }

  std::unordered_map<std::string, Value, NameHash, std::equal_to<>> plain_;
  /// No plain pattern is longer, so no longer part of a name has to be looked up.
  std::size_t longestPlain_ = 0;
  WildIndex<Value, FromBeginning> byBeginning_;
  WildIndex<Value, FromEnding> byEnding_;
};

}  // namespace boost::logging::detail
