// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "logmanager/threads/thread_state.h"
#include "platform/clock.h"

namespace boost::logging::detail {

/// A format for times: $yyyy, $MM, $dd, $hh, $mm, $ss and $mss (milliseconds, three digits) stand for parts of the
/// time, other text for itself. A value; pure functions.
class TimeFormat {
 public:
  explicit TimeFormat(const std::string& _format);

  /// The time in this format.
  std::string text(const platform::LocalTime& _time) const;

  /// Where the milliseconds stand in every text with a year of up to four digits: the rest stays the same for a second.
  const std::vector<std::size_t>& millisecondPlaces() const { return millisecondPlaces_; }

 private:
  enum class Part { literal, year, month, day, hour, minute, second, millisecond };
  struct Piece {
    Part part;
    std::string literal;
  };

  static Piece nextPiece(const std::string& _format, std::size_t& _place);
  static std::string textOf(const Piece& _piece, const platform::LocalTime& _time);

  std::vector<Piece> pieces_;
  std::vector<std::size_t> millisecondPlaces_;
};

/// A time format that keeps the text of the latest time per thread: within a second only the milliseconds change, and
/// many messages share theirs. Any threads may call all functions at once.
class TimeStamp {
 public:
  explicit TimeStamp(const std::string& _format) : format_(_format), source_(_format), id_(nextId()) {}

  /// Whether both give the same text of every time.
  bool isSameAs(const TimeStamp& _other) const { return source_ == _other.source_; }

  /// The time in this format.
  /// @param _time in milliseconds since 1970.
  /// @param _latest that of the calling thread; the result may point into it.
  /// @param _memory holds a text that is too long for that.
  std::string_view text(std::int64_t _time, ThreadState::TimeText& _latest, std::string& _memory) const {
    if (_latest.formatId == id_ && _latest.time == _time) return {_latest.text, _latest.size};
    return newText(_time, _latest, _memory);
  }

 private:
  static std::uint64_t nextId();
  std::string_view newText(std::int64_t _time, ThreadState::TimeText& _latest, std::string& _memory) const;
  bool refresh(ThreadState::TimeText& _latest, std::int64_t _second) const;

  TimeFormat format_;
  std::string source_;
  /// Tells formats apart in the states of threads; never reused.
  std::uint64_t id_;
};

}  // namespace boost::logging::detail
