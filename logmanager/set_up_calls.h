// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/callable.h"
#include "logmanager/names/name_pattern.h"
#include "logmanager/names/record_blocks.h"
#include "logmanager/names/short_number.h"

namespace boost::logging::detail {

/// Set-up calls with copies of their arguments, to be carried out later, in order. A list of classes can have a million
/// calls, so each takes little more memory than its texts. Not synchronised.
class SetUpCalls {
 public:
  enum class Action : unsigned char { connect, disconnectAppender, disconnectModifier, enable, disable };

  /// A call as it is read; its texts are views.
  struct Call {
    Action action;
    NamePattern pattern;
    /// Of the callables that are disconnected.
    std::string_view name;
    /// What is connected, else null.
    const SharedCallable* callable = nullptr;
    RecordBlocks::Place place = 0;

    bool enables() const { return action == Action::enable; }
    bool switches() const { return action == Action::enable || action == Action::disable; }
    /// Of the callables that are disconnected.
    CallableKind kind() const {
      return action == Action::disconnectModifier ? CallableKind::modifier : CallableKind::appender;
    }
  };

  void connect(std::string_view _logs, const SharedCallable& _callable);
  void disconnect(std::string_view _logs, CallableKind _kind, std::string_view _name);
  void enable(std::string_view _logs, bool _enabled) { note(_enabled ? Action::enable : Action::disable, _logs, {}); }

  /// Calls _visit(const Call&) for each call.
  template <typename Visit>
  void forEach(Visit _visit) const {
    if (records_ == nullptr) return;
    const SharedCallable* nextCallable = callables_.data();
    records_->forEach([&](RecordBlocks::Place _place, const char* _record) {
      const char* const begin = _record;
      Call call = read(_record);
      if (call.action == Action::connect) call.callable = nextCallable++;
      call.place = _place;
      _visit(call);
      return static_cast<std::size_t>(_record - begin);
    });
  }

  std::size_t size() const { return size_; }
  bool isEmpty() const { return size_ == 0; }

  /// For who wants the calls to outlive this object; readAt reads them. Null while there is none.
  std::shared_ptr<const RecordBlocks> records() const { return records_; }

  /// Reads a call, but for its callable and its place.
  static Call readAt(const char* _record) { return read(_record); }
  /// Reads the text of its pattern only.
  static std::string_view patternAt(const char* _record) {
    const std::size_t size = readShortNumber(_record) / kindCount;
    return {_record, size};
  }

  /// Forgets all but the first calls. Their callables may have destructors that add calls, which are forgotten as well.
  void shrink(std::size_t _size) noexcept;

 private:
  /// What stands before a pattern: its size, the action, and whether the pattern is plain. A power of two has no
  /// division.
  static constexpr std::size_t kindCount = 16;

  void note(Action _action, std::string_view _logs, std::string_view _name);

  /// As readAt, and moves the place behind the record.
  static Call read(const char*& _record);

  /// Of each call: its action and the size of its pattern, the pattern, the size of the name, the name.
  std::shared_ptr<RecordBlocks> records_;
  /// Of the calls that connect, in their order.
  std::vector<SharedCallable> callables_;
  std::size_t size_ = 0;
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
