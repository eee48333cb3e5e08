// SPDX-License-Identifier: MIT
// Any text of an option for a time: it is refused, or it is a moment that, written out, means the same moment.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tools/logs/since.h"

namespace {

// 2026-11-22 05:00:00.000 in UTC, and the time of a zone without changes.
constexpr std::int64_t now = 1'795'323'600'000;

platform::LocalTime local(std::int64_t _milliseconds) { return platform::toLocalTime(_milliseconds); }

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  const std::string text(_data, _data + _size);
  const auto since = qmrkctl::sinceTime(text, now, local);
  if (!since) return 0;
  const std::string written = qmrkctl::civilText(*since);
  if (written.size() != std::string("2026-11-22 05:00:00").size()) return 0;
  const auto again = qmrkctl::sinceTime(written, now, local);
  if (!again || *again != *since - *since % 1000) std::abort();
  return 0;
}
