// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "logmanager/appenders/lane.h"
#include "logmanager/threads/thread_state.h"
#include "platform/tick_clock.h"

namespace boost::logging::detail {

/// Lines for one call of a wrapped appender.
struct Batch {
  std::string text;
  /// Where each message ends in the text.
  std::vector<std::size_t> ends;

  bool isEmpty() const { return ends.empty(); }
  void clear();
};

/// Makes the lines of a batch from records, in their order. One thread at a time.
class LineMaker {
 public:
  /// To be called after the records of the next batch were published, which are the younger for it.
  void noteNow();

  /// May throw std::bad_alloc; the batch is then as before, or has a text behind its last message.
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
  /// What stood before the latest message, and stands before the next one of its log and millisecond.
  std::string front_;
  const LinePlan* frontPlan_ = nullptr;
  const std::string* frontLogName_ = nullptr;
  std::int64_t frontTime_ = 0;
  ThreadState thread_;
};

}  // namespace boost::logging::detail
