// SPDX-License-Identifier: MIT
#include "logmanager/enable_rules.h"

#include <algorithm>

namespace boost::logging::detail {

void EnableRules::prepare(const NamePattern& _pattern) {
  if (_pattern.selectsAll()) return;
  if (!_pattern.isPlain()) {
    wild_.at(_pattern.text());
    return;
  }
  plain_.enter(_pattern);
  longestPlain_ = std::max(longestPlain_, _pattern.text().size());
}

void EnableRules::set(const NamePattern& _pattern, bool _enabled) noexcept {
  const Call call = 2 * ++calls_ + (_enabled ? 1 : 0);
  if (_pattern.selectsAll()) {
    usualCalls_ = calls_ - forAll_ / 2 - 1;
    forAll_ = call;
  } else if (_pattern.isPlain()) {
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
  if (size() <= 2 * std::max(calls, usualCalls_) + staleRuleSlack) return;
  plain_.eraseBelow(forAll_);
  wild_.eraseIf([this](Call _call) { return _call < forAll_; });
}

bool EnableRules::isEnabled(std::string_view _name) {
  Call latest = forAll_;
  const auto considerPlain = [this, &latest](std::string_view _text) { latest = std::max(latest, plain_.find(_text)); };
  considerPlain(_name);
  for (std::size_t dot = _name.find('.', 1); dot <= longestPlain_ && dot != std::string_view::npos;
       dot = _name.find('.', dot + 1)) {
    considerPlain(_name.substr(0, dot));
  }
  wild_.anyMatching(_name, [&latest](Call _call) {
    latest = std::max(latest, _call);
    return false;
  });
  return latest % 2 == 1;
}

}  // namespace boost::logging::detail
