// SPDX-License-Identifier: MIT
#include "logmanager/enable_rules.h"

namespace boost::logging::detail {

void EnableRules::set(const NamePattern& _pattern, bool _enabled) {
  if (_pattern.selectsAll()) {
    rules_.clear();
    forAll_ = _enabled;
    return;
  }
  rules_.at(_pattern) = Rule{++sequence_, _enabled};
}

bool EnableRules::isEnabled(std::string_view _name) {
  Rule latest{0, forAll_};
  rules_.forEachSelecting(_name, [&latest](const Rule& _rule) {
    if (_rule.sequence > latest.sequence) latest = _rule;
  });
  return latest.enabled;
}

}  // namespace boost::logging::detail
