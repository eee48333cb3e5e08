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
  for (const Step& step : steps_) {
    if (step.home == nullptr) continue;
    if (step.isInsertion) {
      step.rule->insertion = notInserted;
    } else {
      taken_.splice(taken_.end(), step.home->removed, step.rule);
    }
  }
  steps_.clear();
  eraseEmptyHomes(taken_.begin());
  Rules forgotten;
  forgotten.swap(taken_);
  return forgotten;
}

void CallableRules::rollBack() noexcept {
  for (; !steps_.empty(); steps_.pop_back()) {
    const Step& step = steps_.back();
    if (step.home == nullptr) continue;
    if (step.isInsertion) {
      taken_.splice(taken_.end(), step.home->living, step.rule);
      --size_;
    } else {
      step.home->living.splice(step.home->living.end(), step.home->removed, step.rule);
      ++size_;
    }
  }
  eraseEmptyHomes(taken_.begin());
  // Their destructors may come back here.
  Rules forgotten;
  forgotten.swap(taken_);
}

std::vector<SharedCallable> CallableRules::callablesOf(std::string_view _name) {
  std::vector<const Rule*> rules;
  byGlob_.anyMatching(_name, [&rules](const Home& _home) {
    for (const Rule& rule : _home.living)
      rules.push_back(&rule);
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
  _rule.insertion = steps_.size();
  steps_.push_back(Step{true, nullptr, {}});
  Home& home = byGlob_.at(_rule.glob);
  home.living.push_back(std::move(_rule));
  steps_.back().home = &home;
  steps_.back().rule = std::prev(home.living.end());
  ++size_;
}

void CallableRules::removeCovered(const std::string& _glob, CallableKind _kind, std::string_view _name) {
  const std::size_t formerlyTaken = taken_.size();
  byGlob_.anyMatchedBy(_glob, [&](Home& _home) {
    removeFrom(_home, _kind, _name);
    return false;
  });
  eraseEmptyHomes(std::prev(taken_.end(), static_cast<std::ptrdiff_t>(taken_.size() - formerlyTaken)));
}

// Rules that the change under way has inserted are gone at once: a change that repeats its calls would otherwise walk
// over all that it has removed already, again and again.
void CallableRules::removeFrom(Home& _home, CallableKind _kind, std::string_view _name) {
  for (auto next = _home.living.begin(); next != _home.living.end();) {
    const auto rule = next++;
    if (rule->kind != _kind || rule->name != _name) continue;
    if (rule->insertion != notInserted) {
      steps_[rule->insertion].home = nullptr;
      taken_.splice(taken_.end(), _home.living, rule);
    } else {
      steps_.push_back(Step{false, &_home, rule});
      _home.removed.splice(_home.removed.end(), _home.living, rule);
    }
    --size_;
  }
}

bool CallableRules::meetsAddition(const std::string& _glob, CallableKind _kind, std::string_view _name) {
  return byGlob_.anyMeeting(_glob, [&](const Home& _home) {
    return std::ranges::any_of(_home.living, [&](const Rule& _rule) {
      return _rule.callable != nullptr && _rule.kind == _kind && _rule.name == _name;
    });
  });
}

void CallableRules::eraseEmptyHomes(Rules::const_iterator _firstTaken) noexcept {
  for (auto rule = _firstTaken; rule != taken_.end(); ++rule) {
    const Home* const home = byGlob_.find(rule->glob);
    if (home != nullptr && home->living.empty() && home->removed.empty()) byGlob_.erase(rule->glob);
  }
}

}  // namespace boost::logging::detail
