// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "logmanager/log.h"
#include "logmanager/names/glob.h"
#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

/// All logs, found by name and by pattern. The cost of a selection is that of the names that share the pattern's
/// beginning or its ending, whichever are fewer. Not synchronised.
class LogRegistry {
 public:
  /// Null when there is no log of that name.
  Log* find(std::string_view _name) const;

  /// Adds a log under a name that has none yet; its address never changes. Adds nothing when memory runs out.
  Log& create(const std::string& _name, bool _enabled, std::unique_ptr<const CallableSet> _callables);

  /// Calls _visit(Log&) once for each selected log.
  template <typename Visit>
  void forEachSelected(const NamePattern& _pattern, Visit _visit) {
    if (_pattern.selectsAll()) {
      for (Log& log : logs_)
        _visit(log);
    } else if (!_pattern.isPlain()) {
      forEachMatched(_pattern.text(), _visit);
    } else {
      const auto place = logOf_.find(_pattern);
      if (place != logOf_.end()) _visit(*place->second);
      if (mayHaveBelow(_pattern)) forEachMatched(std::string(_pattern.text()) + ".*", _visit);
    }
  }

  /// Calls _visit(const Log&) for each, in the order of creation.
  template <typename Visit>
  void forEach(Visit _visit) const {
    for (const Log& log : logs_)
      _visit(log);
  }

  std::size_t size() const { return logs_.size(); }

 private:
  template <typename Side>
  struct LogLess {
    using is_transparent = void;
    bool operator()(const Log* _left, const Log* _right) const { return Side::isLess(_left->name, _right->name); }
    bool operator()(const Log* _left, std::string_view _right) const { return Side::isLess(_left->name, _right); }
  };

  template <typename Visit>
  void forEachMatched(std::string_view _glob, Visit _visit) {
    const std::string_view beginning = globBeginning(_glob);
    const std::string_view ending = globEnding(_glob);
    // Walks both groups of neighbours in step, to the end of the smaller one, which it then examines.
    const auto firstAlike = byBeginning_.lower_bound(beginning);
    const auto firstEndingAlike = byEnding_.lower_bound(ending);
    auto alike = firstAlike;
    auto endingAlike = firstEndingAlike;
    while (true) {
      if (alike == byBeginning_.end() || !FromBeginning::has((*alike)->name, beginning)) {
        return visitMatched(firstAlike, alike, _glob, _visit);
      }
      if (endingAlike == byEnding_.end() || !FromEnding::has((*endingAlike)->name, ending)) {
        return visitMatched(firstEndingAlike, endingAlike, _glob, _visit);
      }
      ++alike;
      ++endingAlike;
    }
  }

  template <typename Place, typename Visit>
  static void visitMatched(Place _begin, Place _end, std::string_view _glob, Visit _visit) {
    for (; _begin != _end; ++_begin) {
      if (globMatches(_glob, (*_begin)->name)) _visit(**_begin);
    }
  }

  void enter(Log& _log);
  void leave(Log& _log) noexcept;
  void noteParents(std::string_view _name);
  bool mayHaveBelow(const NamePattern& _plain) const;

  std::deque<Log> logs_;
  std::unordered_map<std::string_view, Log*, NameHash, NameEqual> logOf_;
  std::set<Log*, LogLess<FromBeginning>> byBeginning_;
  std::set<Log*, LogLess<FromEnding>> byEnding_;
  /// The hashes of all names that have a log below them: a quick "no" for names with nothing below them. Leaves out
  /// names with very many parts; once there is one, every answer is "maybe".
  std::unordered_set<std::size_t> parents_;
  bool hasDeepNames_ = false;
};

}  // namespace boost::logging::detail
