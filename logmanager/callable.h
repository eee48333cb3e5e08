// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "boost/logging/callables.hpp"
#include "logmanager/appender_gate.h"
#include "logmanager/appenders/own_appender.h"

namespace boost::logging::detail {

enum class CallableKind { modifier, appender };

/// An appender or a modifier as one set-up call added it; all logs that it is connected to share it. Does not change
/// once it is connected.
struct Callable {
  CallableKind kind;
  std::string name;
  int index;
  /// Of the two exactly one is set.
  boost::logging::modifier modify;
  boost::logging::appender append;
  /// Set for an appender that must not be entered by two threads at once.
  std::unique_ptr<AppenderGate> gate;
  /// Of append.
  OwnAppender own{append};
};

using SharedCallable = std::shared_ptr<const Callable>;

SharedCallable makeModifier(const boost::logging::modifier& _modifier, const std::string& _name, int _index);

/// An appender other than the manager's own gets a gate.
SharedCallable makeAppender(const boost::logging::appender& _appender, const std::string& _name, int _index);

}  // namespace boost::logging::detail
