// SPDX-License-Identifier: MIT
#include "logmanager/callable_rules.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace boost::logging::detail {

void CallableRules::add(const NamePattern& _pattern, const SharedCallable& _callable) {
  ++sequence_;
  for (std::string& glob : _pattern.globs())
    insert(Rule{std::move(glob), sequence_, _callable->kind, _callable->name, _callable});
}

void CallableRules::remove(const NamePattern& _pattern, CallableKind _kind, std::string_view _name) {
  ++sequence_;
  for (std::string& glob : _pattern.globs()) {
    removeCovered(glob, _kind, _name);
    if (meetsAddition(glob, _kind, _name)) insert(Rule{std::move(glob), sequence_, _kind, std::string(_name), nullptr});
  }
}

CallableRules::Rules CallableRules::commit() noexcept {
  Rules forgotten;
  for (const Step& step : steps_) {
    if (!step.isInsertion) take(step, forgotten);
  }
  steps_.clear();
  return forgotten;
}

void CallableRules::rollBack() noexcept {
  Rules forgotten;
  for (; !steps_.empty(); steps_.pop_back()) {
    const Step& step = steps_.back();
    if (!step.isInsertion) {
      step.rule->isDead = false;
    } else if (step.home != nullptr) {
      take(step, forgotten);
    }
  }
}

std::vector<SharedCallable> CallableRules::callablesOf(std::string_view _name) {
  std::vector<const Rule*> rules;
  byGlob_.anyMatching(_name, [&rules](const Rules& _rules) {
    for (const Rule& rule : _rules) {
      if (!rule.isDead) rules.push_back(&rule);
    }
    return false;
  });
  std::ranges::sort(rules, std::greater(), &Rule::sequence);
  std::vector<SharedCallable> callables;
  std::vector<const Rule*> removals;
  for (const Rule* const rule : rules) {
    const auto takesAway = [rule](const Rule* _removal) {
      return _removal->kind == rule->kind && _removal->name == rule->name;
    };
    if (rule->callable == nullptr) {
      removals.push_back(rule);
    } else if (std::ranges::none_of(removals, takesAway)) {
      callables.push_back(rule->callable);
    }
  }
  std::ranges::reverse(callables);
  return callables;
}

void CallableRules::insert(Rule _rule) {
  steps_.push_back(Step{true, nullptr, {}});
  Rules& home = byGlob_.at(_rule.glob);
  home.push_back(std::move(_rule));
  steps_.back().home = &home;
  steps_.back().rule = std::prev(home.end());
  ++size_;
}

void CallableRules::removeCovered(const std::string& _glob, CallableKind _kind, std::string_view _name) {
  byGlob_.anyMatchedBy(_glob, [&](Rules& _rules) {
    for (auto rule = _rules.begin(); rule != _rules.end(); ++rule) {
      if (rule->isDead || rule->kind != _kind || rule->name != _name) continue;
      steps_.push_back(Step{false, &_rules, rule});
      rule->isDead = true;
    }
    return false;
  });
}

bool CallableRules::meetsAddition(const std::string& _glob, CallableKind _kind, std::string_view _name) {
  return byGlob_.anyMeeting(_glob, [&](const Rules& _rules) {
    return std::ranges::any_of(_rules, [&](const Rule& _rule) {
      return !_rule.isDead && _rule.callable != nullptr && _rule.kind == _kind && _rule.name == _name;
    });
  });
}

void CallableRules::take(const Step& _step, Rules& _forgotten) noexcept {
  _forgotten.splice(_forgotten.end(), *_step.home, _step.rule);
  if (_step.home->empty()) byGlob_.erase(_forgotten.back().glob);
  --size_;
}

}  // namespace boost::logging::detail
