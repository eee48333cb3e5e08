// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "logmanager/names/glob_index.h"
#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

/// Which logs are on, for logs that do not exist yet: of all calls the latest one that selects a name decides. Holds at
/// most one rule per pattern. Not synchronised.
class EnableRules {
 public:
  /// Notes a call, which counts from the next commit on. May throw std::bad_alloc; a call of rollBack is due then.
  void set(const NamePattern& _pattern, bool _enabled);

  void commit() noexcept;
  void rollBack() noexcept { noted_.clear(); }

  /// On when no rule selects the name.
  bool isEnabled(std::string_view _name);

  /// How many rules are held, those included that a later call for all logs has overruled.
  std::size_t size() const { return plain_.size() + wild_.size(); }

 private:
  /// The latest call for a pattern; one without a call decides nothing.
  struct Rule {
    std::uint64_t sequence = 0;
    bool enabled = true;
  };
  struct Noted {
    Rule* rule;
    bool enabled;
  };

  Rule& at(const NamePattern& _pattern);
  void forgetOverruled() noexcept;

  std::unordered_map<std::string, Rule, NameHash, NameEqual> plain_;
  /// No plain pattern is longer, so no longer part of a name has to be looked up.
  std::size_t longestPlain_ = 0;
  GlobIndex<Rule> wild_;
  Rule forAll_;
  std::vector<Noted> noted_;
  std::uint64_t sequence_ = 0;
  /// How many calls came between the latest two calls for all logs.
  std::uint64_t usualCalls_ = 0;
};

}  // namespace boost::logging::detail
