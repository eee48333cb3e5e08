// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/callable.h"
#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

/// Set-up calls with copies of their arguments, to be carried out later, in order. Their texts stand one after the
/// other, as a list of classes can have thousands of calls. Not synchronised.
class SetUpCalls {
 public:
  enum class Action { connect, disconnect, enable, disable };

  struct Call {
    Action action;
    CallableKind kind;
    /// For connect.
    SharedCallable callable;
    std::size_t begin;
    std::size_t patternSize;
    std::size_t nameSize;
  };

  void connect(std::string_view _logs, const SharedCallable& _callable) {
    note(Action::connect, _logs, _callable->kind, _callable, {});
  }
  void disconnect(std::string_view _logs, CallableKind _kind, std::string_view _name) {
    note(Action::disconnect, _logs, _kind, nullptr, _name);
  }
  void enable(std::string_view _logs, bool _enabled) {
    note(_enabled ? Action::enable : Action::disable, _logs, CallableKind::appender, nullptr, {});
  }

  auto begin() const { return calls_.begin(); }
  auto end() const { return calls_.end(); }
  std::size_t size() const { return calls_.size(); }
  bool isEmpty() const { return calls_.empty(); }

  NamePattern pattern(const Call& _call) const { return NamePattern(text(_call.begin, _call.patternSize)); }

  /// Of the callables that a disconnect call disconnects.
  std::string_view name(const Call& _call) const { return text(_call.begin + _call.patternSize, _call.nameSize); }

  /// Forgets all but the first calls. Their callables may have destructors that add calls, which are forgotten as well.
  void shrink(std::size_t _size) noexcept;

 private:
  void note(Action _action, std::string_view _logs, CallableKind _kind, const SharedCallable& _callable,
            std::string_view _name);
  std::string_view text(std::size_t _begin, std::size_t _size) const {
    return std::string_view(texts_).substr(_begin, _size);
  }

  std::vector<Call> calls_;
  std::string texts_;
};

/// What a thread has noted since it began its outermost set_up_change of a manager.
struct NotedCalls {
  /// Null when the calling thread has no set_up_change of that manager.
  static NotedCalls* ofThread(const default_log_manager& _manager);

  default_log_manager& manager;
  /// The outermost one, which applies the calls.
  const set_up_change* owner;
  /// Of the same thread and another manager.
  NotedCalls* outer;
  SetUpCalls calls;
  /// Whether flush_log_cache was called.
  bool isFlushDue = false;
};

}  // namespace boost::logging::detail
