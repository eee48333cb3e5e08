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
  explicit format(const std::string& _format) : format_(_format), id_(nextId()) {}

  void prependTo(std::string& _message, std::int64_t _time) const;

 private:
  static constexpr std::int64_t MILLISECONDS = 1000;

  /// The text of the second that a thread used last: only the milliseconds change within it. Of plain data, so that a
  /// thread may end at any time.
  struct Cache {
    std::uint64_t id = 0;
    std::int64_t second = 0;
    std::size_t size = 0;
    char text[64] = {};
  };

  static std::uint64_t nextId() {
    static constinit std::atomic<std::uint64_t> latest{0};
    return ++latest;
  }

  static Cache& threadCache() {
    static thread_local constinit Cache cache;
    return cache;
  }

  bool refresh(Cache& _cache, std::int64_t _second) const;

  detail::TimeFormat format_;
  /// Tells the formats apart in the caches; never used again.
  std::uint64_t id_;
};

void prepend_time_ms::format::prependTo(std::string& _message, std::int64_t _time) const {
  std::int64_t millisecond = _time % MILLISECONDS;
  if (millisecond < 0) millisecond += MILLISECONDS;
  const std::int64_t second = (_time - millisecond) / MILLISECONDS;
  Cache& cache = threadCache();
  if ((cache.id != id_ || cache.second != second) && !refresh(cache, second)) {
    _message.insert(0, format_.text(platform::toLocalTime(_time)));
    return;
  }
  for (const std::size_t place : format_.millisecondPlaces()) {
    cache.text[place] = static_cast<char>('0' + millisecond / 100);
    cache.text[place + 1] = static_cast<char>('0' + millisecond / 10 % 10);
    cache.text[place + 2] = static_cast<char>('0' + millisecond % 10);
  }
  _message.insert(0, cache.text, cache.size);
}

// false when the text does not fit, or its milliseconds are not where they are for years of four digits.
bool prepend_time_ms::format::refresh(Cache& _cache, std::int64_t _second) const {
  const platform::LocalTime time = platform::toLocalTime(_second * MILLISECONDS);
  const std::string text = format_.text(time);
  if (text.size() > sizeof(_cache.text) || time.year < 0 || time.year > 9999) return false;
  _cache.id = id_;
  _cache.second = _second;
  _cache.size = text.size();
  std::memcpy(_cache.text, text.data(), text.size());
  return true;
}

prepend_time_ms::prepend_time_ms(const std::string& _format) : format_(new format(_format)) {}

void prepend_time_ms::operator()(const std::string& /*_logName*/, std::string& _message) const {
  format_->prependTo(_message, detail::messageTime());
}

}  // namespace boost::logging
