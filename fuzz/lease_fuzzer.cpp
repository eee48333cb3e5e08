// SPDX-License-Identifier: MIT
// Any text of a file of leases, and any class list: the times of what is read can be reckoned with, what is written of
// it is read the same, and only classes of a lease leave the list.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tools/qmrkctl/class_list_text.h"
#include "tools/qmrkctl/lease.h"

namespace {

// Where no start of the system is known, and where it is one of the seeds'.
const qmrkctl::Clocks clocks[] = {{1'795'323'600'000, {"", 0}}, {0, {"one", 5'000}}};

void expect(bool _condition) {
  if (!_condition) std::abort();
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  const std::string text(_data, _data + _size);
  const std::size_t end = text.find('\0');
  const std::string list = end == std::string::npos ? std::string() : text.substr(end + 1);
  const auto leases = qmrkctl::parseLeases(text.substr(0, end));
  const std::string written = qmrkctl::leasesText(leases);
  const auto again = qmrkctl::parseLeases(written);
  expect(again.size() == leases.size() && qmrkctl::leasesText(again) == written);
  for (const qmrkctl::Clocks& now : clocks) {
    for (const qmrkctl::Lease& lease : leases) {
      expect((qmrkctl::timeLeft(lease, now).count() == 0) == qmrkctl::isOver(lease, now));
    }
    const qmrkctl::Swept swept = qmrkctl::sweep(list, leases, now);
    expect(swept.leases.size() <= leases.size());
    expect(qmrkctl::classesIn(swept.list).size() + swept.ended.size() == qmrkctl::classesIn(list).size());
  }
  return 0;
}
