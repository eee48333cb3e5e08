// SPDX-License-Identifier: MIT
#include "logmanager/enable_rules.h"

#include <algorithm>

namespace boost::logging::detail {

void EnableRules::set(const NamePattern& _pattern, bool _enabled) { noted_.push_back(Noted{&at(_pattern), _enabled}); }

void EnableRules::commit() noexcept {
  for (const Noted& noted : noted_) {
    if (noted.rule == &forAll_) usualCalls_ = sequence_ - forAll_.sequence;
    *noted.rule = Rule{++sequence_, noted.enabled};
  }
  noted_.clear();
  forgetOverruled();
}

EnableRules::Rule& EnableRules::at(const NamePattern& _pattern) {
  if (_pattern.selectsAll()) return forAll_;
  if (!_pattern.isPlain()) return wild_.at(_pattern.text());
  const auto place = plain_.find(_pattern);
  if (place != plain_.end()) return place->second;
  longestPlain_ = std::max(longestPlain_, _pattern.text().size());
  return plain_[std::string(_pattern.text())];
}

// A call for all logs overrules what came before. The same patterns usually follow it again, so their rules keep their
// places unless most of them turn out to be no longer called.
void EnableRules::forgetOverruled() noexcept {
  constexpr std::uint64_t staleRuleSlack = 64;
  const std::uint64_t calls = sequence_ - forAll_.sequence;
  if (size() <= 2 * std::max(calls, usualCalls_) + staleRuleSlack) return;
  const auto isOverruled = [this](const Rule& _rule) { return _rule.sequence < forAll_.sequence; };
  std::erase_if(plain_, [&isOverruled](const auto& _entry) { return isOverruled(_entry.second); });
  wild_.eraseIf(isOverruled);
}

bool EnableRules::isEnabled(std::string_view _name) {
  Rule latest = forAll_;
  const auto consider = [&latest](const Rule& _rule) {
    if (_rule.sequence > latest.sequence) latest = _rule;
    return false;
  };
  const auto considerPlain = [this, &consider](std::string_view _text) {
    const auto place = plain_.find(_text);
    if (place != plain_.end()) consider(place->second);
  };
  considerPlain(_name);
  for (std::size_t dot = _name.find('.', 1); dot <= longestPlain_ && dot != std::string_view::npos;
       dot = _name.find('.', dot + 1)) {
    considerPlain(_name.substr(0, dot));
  }
  wild_.anyMatching(_name, consider);
  return latest.enabled;
}

}  // namespace boost::logging::detail
