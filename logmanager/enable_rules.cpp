// SPDX-License-Identifier: MIT
#include "logmanager/enable_rules.h"

#include <algorithm>
#include <utility>

namespace boost::logging::detail {

void EnableRules::prepare(const NamePattern& _pattern) {
  if (!_pattern.isPlain()) {
    wild_.at(_pattern.text());
    return;
  }
  plain_.enter(_pattern);
  longestPlain_ = std::max(longestPlain_, _pattern.text().size());
}

void EnableRules::set(const NamePattern& _pattern, bool _enabled) noexcept {
  const Call call = nextCall(_enabled);
  if (_pattern.isPlain()) {
    plain_.set(_pattern, call);
  } else {
    *wild_.find(_pattern.text()) = call;
  }
}

// A call for all logs overrules what came before. The same patterns usually follow it again, so their rules keep their
// places unless most of them turn out to be no longer called.
void EnableRules::forgetOverruled() noexcept {
  constexpr std::uint64_t staleRuleSlack = 64;
  const std::uint64_t calls = calls_ - forAll_ / 2;
  if (plain_.size() + wild_.size() <= 2 * std::max(calls, usualCalls_) + staleRuleSlack) return;
  plain_.eraseBelow(forAll_);
  wild_.eraseIf([this](Call _call) { return _call < forAll_; });
}

void EnableRules::exchange(SwitchList& _list) noexcept {
  const Call former = forAll_;
  forAll_ = nextCall(*_list.forAll());
  usualCalls_ = calls_ - former / 2 - 1;
  std::swap(list_, _list);
}

bool EnableRules::isEnabled(std::string_view _name) {
  Call latest = forAll_;
  forEachPlainPatternOf(_name, longestPlain_,
                        [this, &latest](std::string_view _text) { latest = std::max(latest, plain_.find(_text)); });
  wild_.anyMatching(_name, [&latest](Call _call) {
    latest = std::max(latest, _call);
    return false;
  });
  const bool isSwitched = latest % 2 == 1;
  return latest > forAll_ ? isSwitched : list_.find(_name).value_or(isSwitched);
}

}  // namespace boost::logging::detail
