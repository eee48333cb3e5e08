// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "logmanager/log.h"
#include "logmanager/names/name_hash.h"
#include "logmanager/names/name_order.h"
#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

/// All logs, found by name and by pattern. A selection costs as much as the names that share the pattern's literal
/// beginning or ending, not as all logs. Not synchronised.
class LogRegistry {
 public:
  /// Null when there is no log of that name.
  Log* find(std::string_view _name) const;

  /// Makes a log of a name that has none yet. The log stays where it is.
  Log& create(const std::string& _name);

  /// Calls _visit(Log&) once for each selected log.
  template <typename Visit>
  void forEachSelected(const NamePattern& _pattern, Visit _visit) {
    if (_pattern.selectsAll()) {
      for (Log& log : logs_)
        _visit(log);
    } else if (_pattern.isPlain()) {
      forEachBelow(_pattern, _visit);
    } else if (isByBeginning(_pattern)) {
      forEachWith(byBeginning_, _pattern.prefix(), _pattern, _visit);
    } else {
      forEachWith(byEnding_, _pattern.suffix(), _pattern, _visit);
    }
  }

  std::size_t size() const { return logs_.size(); }

 private:
  template <typename Side>
  struct LogLess {
    using is_transparent = void;
    using NameSide = Side;
    bool operator()(const Log* _left, const Log* _right) const { return Side::isLess(_left->name, _right->name); }
    bool operator()(const Log* _left, std::string_view _right) const { return Side::isLess(_left->name, _right); }
  };

  template <typename Visit>
  void forEachBelow(const NamePattern& _pattern, Visit _visit) {
    if (Log* const log = find(_pattern.text())) _visit(*log);
    if (!mayHaveBelow(_pattern.text())) return;
    const NamePattern below(_pattern.text() + ".*");
    forEachWith(byBeginning_, below.prefix(), below, _visit);
  }

  /// Of the neighbours that have the literal, those that the pattern selects.
  template <typename Names, typename Visit>
  void forEachWith(const Names& _names, std::string_view _literal, const NamePattern& _pattern, Visit _visit) {
    for (auto place = _names.lower_bound(_literal); place != _names.end(); ++place) {
      const std::string_view name = (*place)->name;
      if (!Names::key_compare::NameSide::has(name, _literal)) return;
      if (_pattern.selects(name)) _visit(**place);
    }
  }

  void noteParents(std::string_view _name);
  bool mayHaveBelow(std::string_view _name) const;

  std::deque<Log> logs_;
  std::unordered_map<std::string_view, Log*, NameHash, std::equal_to<>> logOf_;
  std::set<Log*, LogLess<FromBeginning>> byBeginning_;
  std::set<Log*, LogLess<FromEnding>> byEnding_;
  /// The hashes of all names that a log is below of: a cheap no for the many that no log is below of. Names of very
  /// many parts do not put theirs in, and have every answer be maybe.
  std::unordered_set<std::size_t> parents_;
  bool hasDeepNames_ = false;
};

}  // namespace boost::logging::detail
