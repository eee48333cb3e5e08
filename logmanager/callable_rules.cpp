// SPDX-License-Identifier: MIT
#include "logmanager/callable_rules.h"

#include <algorithm>
#include <iterator>

namespace boost::logging::detail {

void CallableRules::add(const NamePattern& _pattern, const SharedCallable& _callable) {
  const Rule& rule = byName_[_callable->name].emplace_back(Rule{++sequence_, _pattern, _callable, {}});
  byPattern_.at(_pattern).push_back(&rule);
}

std::vector<SharedCallable> CallableRules::remove(const NamePattern& _pattern, const std::string& _name) {
  std::vector<SharedCallable> forgotten;
  const auto rules = byName_.find(_name);
  if (rules == byName_.end()) return forgotten;
  std::erase_if(rules->second, [this, &_pattern, &forgotten](Rule& _rule) {
    if (_pattern.covers(_rule.pattern)) {
      forgotten.push_back(_rule.callable);
      forget(_rule);
      return true;
    }
    if (_pattern.meets(_rule.pattern)) except(_rule, _pattern);
    return false;
  });
  if (rules->second.empty()) byName_.erase(rules);
  return forgotten;
}

std::vector<SharedCallable> CallableRules::callablesOf(std::string_view _name) {
  RulePointers found;
  byPattern_.forEachSelecting(_name, [&found, _name](const RulePointers& _rules) {
    std::ranges::copy_if(_rules, std::back_inserter(found),
                         [_name](const Rule* _rule) { return holdsFor(*_rule, _name); });
  });
  std::ranges::sort(found, {}, [](const Rule* _rule) { return _rule->sequence; });
  std::vector<SharedCallable> callables;
  callables.reserve(found.size());
  for (const Rule* const rule : found)
    callables.push_back(rule->callable);
  return callables;
}

std::size_t CallableRules::size() const {
  std::size_t count = 0;
  for (const auto& [name, rules] : byName_) {
    for (const Rule& rule : rules)
      count += 1 + rule.exceptions.size();
  }
  return count;
}

bool CallableRules::holdsFor(const Rule& _rule, std::string_view _name) {
  return std::ranges::none_of(_rule.exceptions,
                              [_name](const NamePattern& _exception) { return _exception.selects(_name); });
}

void CallableRules::except(Rule& _rule, const NamePattern& _pattern) {
  const auto coversNew = [&_pattern](const NamePattern& _exception) { return _exception.covers(_pattern); };
  if (std::ranges::any_of(_rule.exceptions, coversNew)) return;
  std::erase_if(_rule.exceptions, [&_pattern](const NamePattern& _exception) { return _pattern.covers(_exception); });
  _rule.exceptions.push_back(_pattern);
}

void CallableRules::forget(const Rule& _rule) {
  RulePointers& rules = byPattern_.at(_rule.pattern);
  std::erase(rules, &_rule);
  if (rules.empty()) byPattern_.erase(_rule.pattern);
}

}  // namespace boost::logging::detail
