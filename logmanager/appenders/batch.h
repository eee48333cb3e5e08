// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "logmanager/modifiers/line_plan.h"
#include "logmanager/threads/thread_state.h"
#include "platform/tick_clock.h"

namespace boost::logging::detail {

/// A message on its way to a writer thread; its text follows in memory.
struct Record {
  /// Its place among the messages of all lanes.
  std::uint64_t stamp;
  /// When it was logged; set for a message with a plan.
  std::uint64_t ticks;
  /// How the message becomes a line; null if it is one already. Both live as long as the process.
  const LinePlan* plan;
  const std::string* logName;
  std::size_t size;

  std::string_view text() const { return {reinterpret_cast<const char*>(this + 1), size}; }
};

/// Lines for one call of a wrapped appender.
struct Batch {
  std::string text;
  /// The end of each message in the text.
  std::vector<std::size_t> ends;

  bool isEmpty() const { return ends.empty(); }
  void clear();
};

/// Turns records into the lines of a batch, in order. One thread at a time.
class LineMaker {
 public:
  /// Call it after the records of the next batch were published, so that they are younger.
  void noteNow();

  /// May throw std::bad_alloc; the batch is then unchanged, or has a text after its last message.
  void append(const Record& _record, Batch& _batch);

 private:
  std::int64_t timeOf(const Record& _record);
  void makeFront(const Record& _record, std::int64_t _time);

  platform::TickMoment first_ = platform::tickMoment();
  platform::TickMoment now_ = first_;
  platform::TickRate rate_{first_, first_};
  bool rateIsKnown_ = false;
  std::int64_t latestTime_ = 0;
  std::uint64_t latestTicks_ = 0;
  /// What precedes the latest message, and also the next one of its log and millisecond.
  std::string front_;
  const LinePlan* frontPlan_ = nullptr;
  const std::string* frontLogName_ = nullptr;
  std::int64_t frontTime_ = 0;
  ThreadState thread_;
};

}  // namespace boost::logging::detail
