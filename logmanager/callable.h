// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "boost/logging/callables.hpp"
#include "logmanager/appenders/appender_gate.h"

namespace boost::logging::detail {

enum class CallableKind { modifier, appender };

/// An appender or a modifier that one set-up call added; all logs that it is connected to share it. Never changes once
/// it is connected.
struct Callable {
  Callable(const boost::logging::modifier& _modifier, const std::string& _name, int _index);
  Callable(const boost::logging::appender& _appender, const std::string& _name, int _index);
  Callable(const Callable&) = delete;
  Callable& operator=(const Callable&) = delete;

  CallableKind kind;
  std::string name;
  int index;
  /// Exactly one of the two is set.
  boost::logging::modifier modify;
  boost::logging::appender append;
  /// What a write_to_file or a ts_appender leads to, to be called without the detour through the function object; null
  /// for others.
  SharedAppendFile* file = nullptr;
  BatchHandle* writer = nullptr;
  /// Set for an appender that two threads must not enter at once: any but the manager's own.
  std::unique_ptr<AppenderGate> gate;
};

using SharedCallable = std::shared_ptr<const Callable>;

// They choose between the two constructors for functions that both accept.
SharedCallable makeModifier(const boost::logging::modifier& _modifier, const std::string& _name, int _index);
SharedCallable makeAppender(const boost::logging::appender& _appender, const std::string& _name, int _index);

}  // namespace boost::logging::detail
