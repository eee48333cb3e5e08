// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace boost::logging::detail {

struct Log;

/// Messages in the order of logging, with their times and logs: up to a number of bytes of text (and, as messages may
/// be empty, no more messages than bytes). Drops the oldest first. Not synchronised.
class MessageCache {
 public:
  static constexpr std::size_t usualLimit = std::size_t{1024} * 1024;

  explicit MessageCache(std::size_t _limit = usualLimit) : limit_(_limit) {}

  /// @param _time in milliseconds since 1970.
  void add(const Log& _log, std::int64_t _time, std::string_view _text);

  /// Makes the cache as it was at the beginning. Needs no memory.
  void clear() noexcept;

  bool isEmpty() const { return entries_.empty(); }

  /// Whether a text of that size can be added without dropping a message.
  bool hasRoomFor(std::size_t _size) const {
    return text_.size() - begin_ + _size <= limit_ && entries_.size() < limit_;
  }

  /// How many messages were dropped.
  std::uint64_t dropped() const { return dropped_; }

  /// Log and time of the latest dropped message; null when there is none.
  const Log* latestDroppedLog() const { return latestDropped_.log; }
  std::int64_t latestDroppedTime() const { return latestDropped_.time; }

  /// Calls _visit(const Log&, std::int64_t _time, std::string_view) for each message in order.
  template <typename Visit>
  void forEach(Visit _visit) const {
    std::size_t place = begin_;
    for (const Entry& entry : entries_) {
      _visit(*entry.log, entry.time, std::string_view(text_).substr(place, entry.size));
      place += entry.size;
    }
  }

 private:
  struct Entry {
    const Log* log;
    std::int64_t time;
    std::size_t size;
  };

  void dropOldest();
  void noteDropped(const Entry& _entry);

  std::size_t limit_;
  std::deque<Entry> entries_;
  /// The texts, one after another from begin_ on.
  std::string text_;
  std::size_t begin_ = 0;
  std::uint64_t dropped_ = 0;
  Entry latestDropped_{nullptr, 0, 0};
};

}  // namespace boost::logging::detail
