// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "logmanager/names/name_pattern.h"
#include "logmanager/names/rule_index.h"

namespace boost::logging::detail {

/// Which logs are on, for logs that do not exist yet: of all calls the latest one that selects a name decides. Holds at
/// most one rule per pattern. Not synchronised.
class EnableRules {
 public:
  void set(const NamePattern& _pattern, bool _enabled);

  /// On when no rule selects the name.
  bool isEnabled(std::string_view _name);

  /// How many rules are held, those included that a later call for all logs has overruled.
  std::size_t size() const { return rules_.size(); }

 private:
  struct Rule {
    std::uint64_t sequence = 0;
    bool enabled = true;
  };

  void setForAll(bool _enabled);

  RuleIndex<Rule> rules_;
  std::uint64_t sequence_ = 0;
  /// The latest call that selected all logs: it overrules what was called before. The same patterns usually follow it
  /// again, so their rules keep their places, unless most of them turn out to be no longer called.
  Rule forAll_;
};

}  // namespace boost::logging::detail
