// SPDX-License-Identifier: MIT
#include "logmanager/message_cache.h"

namespace boost::logging::detail {

void MessageCache::add(const Log& _log, std::int64_t _time, std::string_view _text) {
  if (_text.size() > limit_) {
    while (!entries_.empty())
      dropOldest();
    noteDropped(Entry{&_log, _time, _text.size()});
    return;
  }
  while (!hasRoomFor(_text.size()))
    dropOldest();
  if (begin_ > limit_) {
    text_.erase(0, begin_);
    begin_ = 0;
  }
  entries_.push_back(Entry{&_log, _time, _text.size()});
  try {
    text_ += _text;
  } catch (...) {
    entries_.pop_back();
    throw;
  }
}

// Another cache in its place would need memory even while it is empty.
void MessageCache::clear() noexcept {
  entries_.clear();
  text_ = std::string();
  begin_ = 0;
  dropped_ = 0;
  latestDropped_ = Entry{nullptr, 0, 0};
}

void MessageCache::dropOldest() {
  begin_ += entries_.front().size;
  noteDropped(entries_.front());
  entries_.pop_front();
}

void MessageCache::noteDropped(const Entry& _entry) {
  latestDropped_ = _entry;
  ++dropped_;
}

}  // namespace boost::logging::detail
