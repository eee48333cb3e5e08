// SPDX-License-Identifier: MIT
#include "logmanager/message_cache.h"

namespace boost::logging::detail {

void MessageCache::add(const Log& _log, std::int64_t _time, std::string_view _text) {
  if (_text.size() > limit_) {
    while (!entries_.empty())
      dropOldest();
    ++dropped_;
    return;
  }
  while (text_.size() - begin_ + _text.size() > limit_ || entries_.size() >= limit_)
    dropOldest();
  if (begin_ > limit_) {
    text_.erase(0, begin_);
    begin_ = 0;
  }
  text_ += _text;
  entries_.push_back(Entry{&_log, _time, _text.size()});
}

void MessageCache::dropOldest() {
  begin_ += entries_.front().size;
  entries_.pop_front();
  ++dropped_;
}

}  // namespace boost::logging::detail
