// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace stress {

/// What a line of a writer says: "@WRITER,NUMBER,SIZE,FILLER,CHECK$", where the filler has SIZE characters and the
/// check covers everything before it. Neither "@" nor "$" occurs inside.
struct NumberedLine {
  std::uint32_t writer = 0;
  std::uint32_t number = 0;
  auto operator<=>(const NumberedLine&) const = default;
};

/// The text of a line, without a line end. Its filler differs from line to line.
std::string textOf(const NumberedLine& _line, std::size_t _fillerSize);

/// What stands between two line ends of a log.
struct Findings {
  /// The complete lines, whatever surrounds them.
  std::vector<NumberedLine> whole;
  /// How many lines begin but are incomplete.
  int torn = 0;
};

Findings findIn(std::string_view _text);

/// How many whole lines of that writer are in the text.
std::int64_t countLinesOf(std::uint32_t _writer, std::string_view _text);

}  // namespace stress
