// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "logmanager/names/name_order.h"
#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

/// One value per pattern with "*", kept under the literal with which the pattern begins (or ends, by the side), and so
/// found by the names that have the literal. Not synchronised.
template <typename Value, typename Side>
class WildIndex {
 public:
  /// The value of a pattern, made by default when it has none. The reference holds until the value is erased.
  Value& at(const NamePattern& _pattern) {
    Bucket& bucket = buckets_[std::string(Side::literal(_pattern))];
    return bucket.try_emplace(_pattern.text(), Entry{_pattern, Value()}).first->second.value;
  }

  void erase(const NamePattern& _pattern) {
    const auto bucket = buckets_.find(Side::literal(_pattern));
    if (bucket == buckets_.end()) return;
    bucket->second.erase(_pattern.text());
    if (bucket->second.empty()) buckets_.erase(bucket);
  }

  void clear() { buckets_.clear(); }

  /// Calls _visit(Value&) for each pattern that selects the name.
  template <typename Visit>
  void forEachSelecting(std::string_view _name, Visit _visit) {
    // From the longest literal that the name may have to shorter ones. The greatest literal that is not greater than a
    // part of the name is one of the name's, or shows how long the next one can be.
    std::size_t size = _name.size();
    while (true) {
      auto bucket = buckets_.upper_bound(Side::part(_name, size));
      if (bucket == buckets_.begin()) return;
      --bucket;
      const std::string_view literal = bucket->first;
      if (!Side::has(_name, literal)) {
        size = Side::common(literal, _name);
        continue;
      }
      for (auto& [text, entry] : bucket->second) {
        if (entry.pattern.selects(_name)) _visit(entry.value);
      }
      if (literal.empty()) return;
      size = literal.size() - 1;
    }
  }

  std::size_t size() const {
    std::size_t count = 0;
    for (const auto& [literal, bucket] : buckets_)
      count += bucket.size();
    return count;
  }

 private:
  struct Entry {
    NamePattern pattern;
    Value value;
  };
  using Bucket = std::map<std::string, Entry>;

  std::map<std::string, Bucket, NameLess<Side>> buckets_;
};

}  // namespace boost::logging::detail
