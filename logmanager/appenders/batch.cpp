// SPDX-License-Identifier: MIT
#include "logmanager/appenders/batch.h"

#include <algorithm>
#include <string_view>

namespace boost::logging::detail {
namespace {

constexpr std::int64_t nanosecondsPerMillisecond = 1000000;
constexpr std::int64_t nanosecondsPerSecond = 1000000000;

}  // namespace

void Batch::clear() {
  text.clear();
  ends.clear();
}

// The longer the time, the better the rate. It is not measured for ever, as a system that slept may have changed the
// counter.
void LineMaker::noteNow() {
  now_ = platform::tickMoment();
  if (rateIsKnown_) return;
  rate_ = platform::TickRate(first_, now_);
  rateIsKnown_ = now_.steady - first_.steady > nanosecondsPerSecond;
}

void LineMaker::append(const Record& _record, Batch& _batch) {
  if (_record.plan != nullptr) {
    const std::int64_t time = timeOf(_record);
    if (frontPlan_ != _record.plan || frontLogName_ != _record.logName || frontTime_ != time) makeFront(_record, time);
    _batch.text += front_;
    _batch.text += _record.text();
    _batch.text.append(_record.plan->enterCount(), '\n');
  } else {
    _batch.text += _record.text();
  }
  _batch.ends.push_back(_batch.text.size());
}

/// In milliseconds since 1970. Readings of two passes may differ by their inexactness; the time of a later message
/// does not go back for it.
std::int64_t LineMaker::timeOf(const Record& _record) {
  const std::int64_t age = std::max<std::int64_t>(rate_.between(_record.ticks, now_.ticks), 0);
  const std::int64_t nanoseconds = now_.wall - age;
  std::int64_t time = nanoseconds / nanosecondsPerMillisecond;
  if (time == latestTime_ - 1 && _record.ticks >= latestTicks_) time = latestTime_;
  latestTime_ = time;
  latestTicks_ = _record.ticks;
  return time;
}

void LineMaker::makeFront(const Record& _record, std::int64_t _time) {
  std::string memory;
  const std::string_view time = _record.plan->timeText(thread_, _time, memory);
  frontPlan_ = nullptr;
  front_.resize(_record.plan->frontSize(time, *_record.logName));
  _record.plan->putFront(front_.data(), time, *_record.logName);
  frontPlan_ = _record.plan;
  frontLogName_ = _record.logName;
  frontTime_ = _time;
}

}  // namespace boost::logging::detail
