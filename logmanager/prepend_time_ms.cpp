// SPDX-License-Identifier: MIT
#include <atomic>
#include <cstdint>
#include <cstring>

#include "boost/logging/callables.hpp"
#include "logmanager/thread_state.h"
#include "logmanager/time_format.h"

namespace boost::logging {

class prepend_time_ms::format {
 public:
  using TimeText = detail::ThreadState::TimeText;

  explicit format(const std::string& _format) : format_(_format), id_(nextId()) {}

  void prependTo(std::string& _message, std::int64_t _time, TimeText& _latest) const;

 private:
  static constexpr std::int64_t MILLISECONDS = 1000;

  static std::uint64_t nextId() {
    static constinit std::atomic<std::uint64_t> latest{0};
    return ++latest;
  }

  bool refresh(TimeText& _latest, std::int64_t _second) const;

  detail::TimeFormat format_;
  /// Tells the formats apart in the states of threads; never used again.
  std::uint64_t id_;
};

void prepend_time_ms::format::prependTo(std::string& _message, std::int64_t _time, TimeText& _latest) const {
  std::int64_t millisecond = _time % MILLISECONDS;
  if (millisecond < 0) millisecond += MILLISECONDS;
  const std::int64_t second = (_time - millisecond) / MILLISECONDS;
  if ((_latest.formatId != id_ || _latest.second != second) && !refresh(_latest, second)) {
    _message.insert(0, format_.text(platform::toLocalTime(_time)));
    return;
  }
  for (const std::size_t place : format_.millisecondPlaces()) {
    _latest.text[place] = static_cast<char>('0' + millisecond / 100);
    _latest.text[place + 1] = static_cast<char>('0' + millisecond / 10 % 10);
    _latest.text[place + 2] = static_cast<char>('0' + millisecond % 10);
  }
  _message.insert(0, _latest.text, _latest.size);
}

// false when the text does not fit, or its milliseconds are not where they are for years of four digits.
bool prepend_time_ms::format::refresh(TimeText& _latest, std::int64_t _second) const {
  const platform::LocalTime time = platform::toLocalTime(_second * MILLISECONDS);
  const std::string text = format_.text(time);
  if (text.size() > sizeof(_latest.text) || time.year < 0 || time.year > 9999) return false;
  _latest.formatId = id_;
  _latest.second = _second;
  _latest.size = text.size();
  std::memcpy(_latest.text, text.data(), text.size());
  return true;
}

prepend_time_ms::prepend_time_ms(const std::string& _format) : format_(new format(_format)) {}

void prepend_time_ms::operator()(const std::string& /*_logName*/, std::string& _message) const {
  detail::ThreadState& thread = detail::threadState();
  format_->prependTo(_message, detail::messageTime(thread), thread.timeText);
}

}  // namespace boost::logging
