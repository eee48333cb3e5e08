// SPDX-License-Identifier: MIT
#include "logmanager/enable_rules.h"

namespace boost::logging::detail {

void EnableRules::set(const NamePattern& _pattern, bool _enabled) {
  if (_pattern.selectsAll()) {
    setForAll(_enabled);
  } else {
    rules_.at(_pattern) = Rule{++sequence_, _enabled};
  }
}

void EnableRules::setForAll(bool _enabled) {
  constexpr std::uint64_t few = 64;
  const std::uint64_t callsSinceLast = sequence_ - forAll_.sequence;
  if (rules_.size() > 2 * callsSinceLast + few) rules_.clear();
  forAll_ = Rule{++sequence_, _enabled};
}

bool EnableRules::isEnabled(std::string_view _name) {
  Rule latest = forAll_;
  rules_.forEachSelecting(_name, [&latest](const Rule& _rule) {
    if (_rule.sequence > latest.sequence) latest = _rule;
  });
  return latest.enabled;
}

}  // namespace boost::logging::detail
