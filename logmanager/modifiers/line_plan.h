// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "boost/logging/callables.hpp"

namespace boost::logging::detail {

struct ThreadState;
class TimeStamp;

/// How many bytes a prefix has besides the name of the log.
constexpr std::size_t prefixSigns = 3;

/// How a message becomes a line when all modifiers of its log are the manager's own: builds the line in one go instead
/// of by insertions, with the same result. A value.
class LinePlan {
 public:
  /// Adds the next modifier to run. A modifier that is not the manager's own, a second time stamp, or too many fronts
  /// make the plan unusable.
  void add(const modifier& _modifier);

  bool isUsable() const { return isUsable_; }

  /// Whether both make the same line of every message; for usable plans.
  bool operator==(const LinePlan& _other) const;

  /// The text of the time in the plan's format; empty for a plan without time.
  /// @param _thread the calling thread's state; the result may point into it.
  /// @param _time in milliseconds since 1970.
  /// @param _memory holds a text that does not fit there.
  std::string_view timeText(ThreadState& _thread, std::int64_t _time, std::string& _memory) const;

  /// How many bytes stand before the message.
  /// @param _time what timeText gave.
  std::size_t frontSize(std::string_view _time, std::string_view _logName) const {
    return _time.size() + prefixCount_ * (_logName.size() + prefixSigns);
  }

  /// Writes what precedes the message to the place, which must have room for it; returns its end.
  char* putFront(char* _place, std::string_view _time, std::string_view _logName) const;

  /// Writes the line feeds that end the line to the place; returns their end.
  char* putEnters(char* _place) const {
    for (std::size_t i = 0; i < enterCount_; ++i)
      *_place++ = '\n';
    return _place;
  }

  /// How many line feeds end the line.
  std::size_t enterCount() const { return enterCount_; }

  /// Makes the line of a message that the thread with this state delivers. May throw std::bad_alloc.
  void makeLine(ThreadState& _thread, std::string_view _logName, std::string_view _message, std::string& _line) const;

 private:
  static constexpr std::size_t mostFronts = 4;
  enum class Front { time, prefix };

  bool include(const modifier& _modifier);
  bool addFront(Front _front);

  /// What precedes the message, the last part first.
  std::array<Front, mostFronts> fronts_{};
  std::size_t frontCount_ = 0;
  std::size_t prefixCount_ = 0;
  boost::shared_ptr<const TimeStamp> time_;
  std::size_t enterCount_ = 0;
  bool isUsable_ = true;
};

/// A plan that makes the same lines and lives as long as the process, so that a waiting message can point to it. Equal
/// plans share one. Any thread. May throw std::bad_alloc.
const LinePlan* keptPlan(const LinePlan& _plan);

}  // namespace boost::logging::detail
