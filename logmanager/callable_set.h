// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "logmanager/callable.h"
#include "logmanager/line_plan.h"

namespace boost::logging::detail {

/// The callables of one log at one time, each kind in the order of running. Immutable once it is published.
struct CallableSet {
  std::vector<SharedCallable> modifiers;
  std::vector<SharedCallable> appenders;
  /// Of the modifiers.
  LinePlan plan;

  /// Puts the callable, the latest one added, behind those of its index.
  void add(const SharedCallable& _callable);
  void removeName(CallableKind _kind, const std::string& _name);

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
