// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "logmanager/callable.h"
#include "logmanager/names/name_pattern.h"
#include "logmanager/names/rule_index.h"

namespace boost::logging::detail {

/// Which callables of one kind are connected, for logs that do not exist yet. What a removal takes away altogether is
/// forgotten; what it takes away in part is kept with the patterns that it no longer holds for, of which none covers
/// another. So repeated calls leave no more than one round of them. Not synchronised.
class CallableRules {
 public:
  void add(const NamePattern& _pattern, const SharedCallable& _callable);

  /// @return the callables that no rule holds any more, for the caller to destroy where it holds no lock.
  std::vector<SharedCallable> remove(const NamePattern& _pattern, const std::string& _name);

  /// The callables of a log of that name, in the order of adding.
  std::vector<SharedCallable> callablesOf(std::string_view _name);

  /// How many rules and exceptions from them are held.
  std::size_t size() const;

 private:
  struct Rule {
    std::uint64_t sequence;
    NamePattern pattern;
    SharedCallable callable;
    std::vector<NamePattern> exceptions;
  };
  using RulePointers = std::vector<const Rule*>;

  static bool holdsFor(const Rule& _rule, std::string_view _name);
  static void except(Rule& _rule, const NamePattern& _pattern);
  void forget(const Rule& _rule);

  std::unordered_map<std::string, std::list<Rule>> byName_;
  RuleIndex<RulePointers> byPattern_;
  std::uint64_t sequence_ = 0;
};

}  // namespace boost::logging::detail
