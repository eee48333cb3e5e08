// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/duration.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace qmrkctl {
namespace {

struct Unit {
  std::string_view name;
  std::int64_t milliseconds;
};

// From the largest to the smallest.
constexpr std::array<Unit, 5> units = {{{"d", 86'400'000}, {"h", 3'600'000}, {"m", 60'000}, {"s", 1'000}, {"ms", 1}}};

constexpr std::int64_t longest = std::int64_t{3653} * 86'400'000;

}  // namespace

std::optional<std::chrono::milliseconds> parseDuration(std::string_view _text) {
  std::uint32_t number = 0;
  const char* const end = _text.data() + _text.size();
  const auto [stop, error] = std::from_chars(_text.data(), end, number);
  if (error != std::errc()) return std::nullopt;
  const std::string_view name(stop, static_cast<std::size_t>(end - stop));
  for (const Unit& unit : units) {
    if (name != unit.name && !(name.empty() && unit.name == "s")) continue;
    const std::int64_t milliseconds = number * unit.milliseconds;
    if (milliseconds > longest) return std::nullopt;
    return std::chrono::milliseconds(milliseconds);
  }
  return std::nullopt;
}

std::string durationText(std::chrono::milliseconds _duration) {
  for (const Unit& unit : units) {
    if (_duration.count() != 0 && _duration.count() % unit.milliseconds == 0) {
      return std::to_string(_duration.count() / unit.milliseconds) + std::string(unit.name);
    }
  }
  return "0s";
}

}  // namespace qmrkctl
