// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "logmanager/callable.h"
#include "logmanager/modifiers/line_plan.h"

namespace boost::logging::detail {

/// The callables of one log at one time, each kind in the order of running. Immutable once it is published.
struct CallableSet {
  /// @param _callables in the order of adding.
  explicit CallableSet(const std::vector<SharedCallable>& _callables);

  const std::vector<SharedCallable>& of(CallableKind _kind) const;

  /// Whether both have the same callables, which therefore run in the same order.
  bool operator==(const CallableSet& _other) const;

  std::vector<SharedCallable> modifiers;
  std::vector<SharedCallable> appenders;
  /// Of the modifiers.
  LinePlan plan;
  /// Set when the plan is usable and a ts_appender is the only appender: statements then leave their text where its
  /// thread finds it, which makes the line by the plan.
  BatchHandle* writer = nullptr;
  const LinePlan* writersPlan = nullptr;
  /// Whether the plan is usable and all appenders are write_to_file: nothing foreign has to be called.
  bool isForFilesOnly = false;
};

}  // namespace boost::logging::detail
