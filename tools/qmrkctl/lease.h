// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/system/boot_clock.h"

namespace qmrkctl {

/// Classes that are switched on for a limited time.
struct Lease {
  std::vector<std::string> classes;  ///< those that the lease added to the list
  std::int64_t since = 0;            ///< milliseconds since 1970
  std::int64_t until = 0;            ///< the same
  std::string bootId;                ///< of the boot during which it began; empty: unknown
  std::int64_t untilUptime = 0;      ///< its end in milliseconds after that boot
  std::string who;
  std::string reason;
};

/// The clocks at one moment.
struct Clocks {
  std::int64_t wall = 0;  ///< milliseconds since 1970
  toolsystem::BootTime boot;
};

Clocks clocksNow();

/// A lease that begins at that moment, without who and reason.
Lease leaseOf(const std::vector<std::string>& _classes, std::chrono::milliseconds _duration, const Clocks& _now);

/// When each class of some leases goes off, in milliseconds since 1970.
std::map<std::string, std::int64_t> endsOf(const std::vector<Lease>& _leases);

/// Whether the lease has expired. Until the next boot, the time since boot decides, which does not jump when somebody
/// sets the clock; afterwards the clock does. If the clock then shows a time before the lease began, it is wrong, and
/// the lease has expired.
bool isOver(const Lease& _lease, const Clocks& _now);

/// The time it has left; 0 if it has expired.
std::chrono::milliseconds timeLeft(const Lease& _lease, const Clocks& _now);

/// The text of a file of leases (JSON).
std::string leasesText(const std::vector<Lease>& _leases);

/// Reads such a text. Skips entries that are no leases; any other text has none.
std::vector<Lease> parseLeases(std::string_view _text);

/// Whether a text, which may be empty, has leases that cannot be read.
bool hasDamagedLeases(std::string_view _text);

/// A class list and its leases after the expired leases have ended.
struct Swept {
  std::string list;
  std::vector<Lease> leases;
  std::vector<std::string> ended;  ///< the classes switched off
};

/// Ends the expired leases: removes each of their classes from the list once, unless another lease still has it. A
/// class that is no longer on the list was switched off by somebody else, so its lease drops it.
Swept sweep(const std::string& _list, const std::vector<Lease>& _leases, const Clocks& _now);

/// The leases without these classes, which somebody has switched on or off for good. Drops empty leases.
std::vector<Lease> withoutLeased(std::vector<Lease> _leases, const std::vector<std::string>& _classes);

}  // namespace qmrkctl
