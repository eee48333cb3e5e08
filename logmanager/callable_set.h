// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "logmanager/callable.h"
#include "logmanager/modifiers/line_plan.h"

namespace boost::logging::detail {

/// The callables of one log at one time, each kind in the order in which they run. Immutable once published.
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
  /// Set if the plan is usable and a ts_appender is the only appender: statements then leave their text for its thread,
  /// which makes the line by the plan.
  BatchHandle* writer = nullptr;
  const LinePlan* writersPlan = nullptr;
  /// Whether the plan is usable and all appenders are write_to_file: no foreign code needs to be called.
  bool isForFilesOnly = false;
};

/// Delivers a message through the modifiers to the appenders. Contains exceptions of callables; the others still get
/// the message. Drops and reports a message logged inside eight others, which would never end.
/// @param _thread the state of the calling thread.
/// @param _callables may be null: none.
/// @param _text the message as it was logged.
/// @param _line working memory in which the modifiers build the line; must not contain _text.
/// @param _time as for MessageScope.
void deliverThrough(ThreadState& _thread, const CallableSet* _callables, const std::string& _logName,
                    std::string_view _text, std::string& _line, std::int64_t _time) noexcept;

}  // namespace boost::logging::detail
