// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "logmanager/callable.h"

namespace boost::logging::detail {

struct ThreadState;
class TimeStamp;

/// How a message becomes a line when all modifiers of its log are the manager's own: what they put before and after the
/// message is put together in one go, in place of insertions one after the other. The line is the same. A value.
class LinePlan {
 public:
  /// Of a log without modifiers.
  LinePlan() = default;

  /// @param _modifiers in the order of running.
  explicit LinePlan(const std::vector<SharedCallable>& _modifiers);

  /// Whether there is a plan: all modifiers are the manager's own, no more than a plan takes, and one time at most.
  bool isUsable() const { return isUsable_; }

  /// Makes the line of a message that the thread, whose state it is given, passes through callables. May throw
  /// std::bad_alloc.
  void makeLine(ThreadState& _thread, std::string_view _logName, std::string_view _message, std::string& _line) const;

 private:
  static constexpr std::size_t MOST_FRONTS = 4;
  enum class Front { time, prefix };

  bool include(const boost::logging::modifier& _modifier);
  bool addTime(const boost::shared_ptr<const TimeStamp>& _time);
  bool addPrefix();
  bool addFront(Front _front);

  /// What comes before the message, the last part first.
  std::array<Front, MOST_FRONTS> fronts_{};
  std::size_t frontCount_ = 0;
  std::size_t prefixCount_ = 0;
  boost::shared_ptr<const TimeStamp> time_;
  std::size_t enterCount_ = 0;
  bool isUsable_ = true;
};

}  // namespace boost::logging::detail
