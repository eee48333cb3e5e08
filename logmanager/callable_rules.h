// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "logmanager/callable.h"
#include "logmanager/names/glob_index.h"
#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

/// Which callables the logs have: the additions and removals that still matter, in the order of the calls. A change by
/// add or remove counts at once; commit keeps it, rollBack undoes it. Not synchronised.
///
/// Patterns are kept as globs, for this reason: if several globs together match all that another one matches, one of
/// them does so alone. (Put a byte that none of them contains in place of each "*" of the other one. It matches this
/// text, so one of them does, and only a "*" can match these bytes.) So an addition can go as soon as one removal
/// covers it, and a removal as soon as a later one covers it; a removal that meets no addition is not kept at all.
/// Repeated calls leave what one round of them leaves.
class CallableRules {
 private:
  struct Rule {
    std::string glob;
    std::uint64_t sequence;
    CallableKind kind;
    std::string name;
    /// Null in a removal.
    SharedCallable callable;
    /// Which step of the change under way has inserted it.
    std::size_t insertion = notInserted;
  };
  static constexpr std::size_t notInserted = static_cast<std::size_t>(-1);

 public:
  using Rules = std::list<Rule>;

  /// May throw std::bad_alloc; call rollBack then.
  void add(const NamePattern& _pattern, const SharedCallable& _callable);
  void remove(const NamePattern& _pattern, CallableKind _kind, std::string_view _name);

  /// @return the rules that go, for the caller to destroy without holding a lock.
  Rules commit() noexcept;

  /// Undoes everything since the latest commit.
  void rollBack() noexcept;

  /// The callables of a log of that name, in the order of adding.
  std::vector<SharedCallable> callablesOf(std::string_view _name);

  /// How many additions and removals it holds.
  std::size_t size() const { return size_; }

 private:
  /// The rules of one glob.
  struct Home {
    Rules living;
    /// Those that the change under way removes: commit forgets them, rollBack brings them back.
    Rules removed;
  };

  /// What rollBack undoes: the insertion of a rule, or its removal.
  struct Step {
    bool isInsertion;
    /// Null when there is nothing to undo.
    Home* home = nullptr;
    Rules::iterator rule;
  };

  void insert(Rule _rule);
  void removeCovered(const std::string& _glob, CallableKind _kind, std::string_view _name);
  void removeFrom(Home& _home, CallableKind _kind, std::string_view _name);
  bool meetsAddition(const std::string& _glob, CallableKind _kind, std::string_view _name);
  void eraseEmptyHomes(Rules::const_iterator _firstTaken) noexcept;

  GlobIndex<Home> byGlob_;
  std::vector<Step> steps_;
  /// Rules that are in no home any more and that the end of the change is to forget.
  Rules taken_;
  std::size_t size_ = 0;
  std::uint64_t sequence_ = 0;
};

}  // namespace boost::logging::detail
