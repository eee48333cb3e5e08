// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "logmanager/names/glob_index.h"
#include "logmanager/names/name_numbers.h"
#include "logmanager/names/name_pattern.h"
#include "logmanager/switch_list.h"

namespace boost::logging::detail {

/// Which logs are on, for logs that do not exist yet: the latest call that selects a name decides. Holds at most one
/// rule per pattern. Not synchronised.
class EnableRules {
 public:
  /// Makes room for the calls of a pattern other than "*", which changes nothing yet. May throw std::bad_alloc.
  void prepare(const NamePattern& _pattern);

  /// Carries out a call for a prepared pattern.
  void set(const NamePattern& _pattern, bool _enabled) noexcept;

  /// Carries out the calls of a list, which has one for all logs, and gives back the list that it overrules.
  void exchange(SwitchList& _list) noexcept;

  /// Forgets obsolete rules now and then. Call it after calls.
  void forgetOverruled() noexcept;

  /// True when no rule selects the name.
  bool isEnabled(std::string_view _name);

  /// How many rules it holds, including those that a later call for all logs has overruled.
  std::size_t size() const { return plain_.size() + wild_.size() + list_.size(); }

 private:
  /// The number of a call times two, plus one when it switches on: a later call is greater. 0: no call.
  using Call = std::uint64_t;
  Call nextCall(bool _enabled) { return 2 * ++calls_ + (_enabled ? 1 : 0); }

  /// What came with the latest call for all logs.
  SwitchList list_;
  // The latest call for each pattern of the others.
  NameNumbers plain_;
  GlobIndex<Call> wild_;
  Call forAll_ = 1;

  /// No plain pattern is longer, so longer parts of a name need no look-up.
  std::size_t longestPlain_ = 0;
  std::uint64_t calls_ = 0;
  /// How many calls came between the latest two calls for all logs.
  std::uint64_t usualCalls_ = 0;
};

}  // namespace boost::logging::detail
