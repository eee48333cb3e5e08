// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/clock.h"

namespace boost::logging::detail {

/// A format of points in time: $yyyy, $MM, $dd, $hh, $mm, $ss and $mss (milliseconds, three digits) stand for parts of
/// the time, other text for itself. A value; pure functions.
class TimeFormat {
 public:
  explicit TimeFormat(const std::string& _format);

  /// The time in this format.
  std::string text(const platform::LocalTime& _time) const;

  /// Where the digits of the milliseconds stand in every text of up to four-digit years: all else stays for a second.
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

}  // namespace boost::logging::detail
