// SPDX-License-Identifier: MIT
#include "logmanager/callable_set.h"

#include <algorithm>

namespace boost::logging::detail {

CallableSet::CallableSet(const std::vector<SharedCallable>& _callables) {
  for (const SharedCallable& callable : _callables)
    (callable->kind == CallableKind::modifier ? modifiers : appenders).push_back(callable);
  const auto index = [](const SharedCallable& _callable) { return _callable->index; };
  std::ranges::stable_sort(modifiers, {}, index);
  std::ranges::stable_sort(appenders, {}, index);
  for (const SharedCallable& modifier : modifiers)
    plan.add(modifier->modify);
  writer = appenders.size() == 1 && plan.isUsable() ? appenders.front()->own.writer() : nullptr;
  writersPlan = writer != nullptr ? keptPlan(plan) : nullptr;
  isForFilesOnly = plan.isUsable() && std::ranges::all_of(appenders, [](const SharedCallable& _appender) {
                     return _appender->own.isFile();
                   });
}

const std::vector<SharedCallable>& CallableSet::of(CallableKind _kind) const {
  return _kind == CallableKind::modifier ? modifiers : appenders;
}

bool CallableSet::operator==(const CallableSet& _other) const {
  return modifiers == _other.modifiers && appenders == _other.appenders;
}

}  // namespace boost::logging::detail
