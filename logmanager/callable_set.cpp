// SPDX-License-Identifier: MIT
#include "logmanager/callable_set.h"

#include <algorithm>
#include <utility>

namespace boost::logging::detail {
namespace {

LinePlan planOf(const std::vector<SharedCallable>& _modifiers) {
  LinePlan plan;
  for (const SharedCallable& modifier : _modifiers)
    plan.add(modifier->modify);
  return plan;
}

}  // namespace

const std::vector<SharedCallable>& CallableSet::of(CallableKind _kind) const {
  return _kind == CallableKind::modifier ? modifiers : appenders;
}

void CallableSet::chooseWay() {
  writer = appenders.size() == 1 && plan.isUsable() ? appenders.front()->own.writer() : nullptr;
  writersPlan = writer != nullptr ? keptPlan(plan) : nullptr;
}

void CallableSet::add(const SharedCallable& _callable) {
  std::vector<SharedCallable>& callables = _callable->kind == CallableKind::modifier ? modifiers : appenders;
  const auto runsLater = [](int _index, const SharedCallable& _other) { return _index < _other->index; };
  callables.insert(std::upper_bound(callables.begin(), callables.end(), _callable->index, runsLater), _callable);
  if (_callable->kind == CallableKind::modifier) plan = planOf(modifiers);
}

void CallableSet::removeName(CallableKind _kind, const std::string& _name) {
  std::erase_if(_kind == CallableKind::modifier ? modifiers : appenders,
                [&_name](const SharedCallable& _callable) { return _callable->name == _name; });
  if (_kind == CallableKind::modifier) plan = planOf(modifiers);
}

std::unique_ptr<const CallableSet> withCallable(const CallableSet* _set, const SharedCallable& _callable) {
  auto set = std::make_unique<CallableSet>();
  if (_set != nullptr) {
    // Room for one more, so that the insertion does not move what was copied.
    set->modifiers.reserve(_set->modifiers.size() + (_callable->kind == CallableKind::modifier ? 1 : 0));
    set->appenders.reserve(_set->appenders.size() + (_callable->kind == CallableKind::appender ? 1 : 0));
    set->modifiers.assign(_set->modifiers.begin(), _set->modifiers.end());
    set->appenders.assign(_set->appenders.begin(), _set->appenders.end());
    set->plan = _set->plan;
  }
  set->add(_callable);
  set->chooseWay();
  return set;
}

std::unique_ptr<const CallableSet> withoutName(const CallableSet& _set, CallableKind _kind, const std::string& _name) {
  auto set = std::make_unique<CallableSet>(_set);
  set->removeName(_kind, _name);
  set->chooseWay();
  return set->isEmpty() ? nullptr : std::move(set);
}

bool hasName(const CallableSet* _set, CallableKind _kind, const std::string& _name) {
  return _set != nullptr && std::ranges::any_of(_set->of(_kind), [&_name](const SharedCallable& _callable) {
           return _callable->name == _name;
         });
}

}  // namespace boost::logging::detail
