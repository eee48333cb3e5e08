// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "logmanager/callable.h"
#include "logmanager/modifiers/line_plan.h"

namespace boost::logging::detail {

/// The callables of one log at one time, each kind in the order of running. Immutable once it is published.
struct CallableSet {
  std::vector<SharedCallable> modifiers;
  std::vector<SharedCallable> appenders;
  /// Of the modifiers.
  LinePlan plan;
  /// Set when the plan is usable and a ts_appender is the only appender: statements then leave their text where its
  /// thread finds it, which makes the line by the plan.
  BatchHandle* writer = nullptr;
  const LinePlan* writersPlan = nullptr;

  /// Puts the callable, the latest one added, behind those of its index.
  void add(const SharedCallable& _callable);
  void removeName(CallableKind _kind, const std::string& _name);

  /// To be called when the callables are complete.
  void chooseWay();

  const std::vector<SharedCallable>& of(CallableKind _kind) const;
  bool isEmpty() const { return modifiers.empty() && appenders.empty(); }
};

/// The set with one callable more.
/// @param _set may be null: the empty set.
std::unique_ptr<const CallableSet> withCallable(const CallableSet* _set, const SharedCallable& _callable);

/// The set without the callables of that kind and name; null for an empty one.
std::unique_ptr<const CallableSet> withoutName(const CallableSet& _set, CallableKind _kind, const std::string& _name);

/// @param _set may be null: the empty set.
bool hasName(const CallableSet* _set, CallableKind _kind, const std::string& _name);

}  // namespace boost::logging::detail
