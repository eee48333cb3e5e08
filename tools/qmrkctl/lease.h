// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/system/boot_clock.h"

namespace qmrkctl {

/// Classes that are on for a time only.
struct Lease {
  std::vector<std::string> classes;  ///< those that it added to the list
  std::int64_t since = 0;            ///< milliseconds since 1970
  std::int64_t until = 0;            ///< the same
  std::string bootId;                ///< of the system's start during which it began; empty: unknown
  std::int64_t untilUptime = 0;      ///< milliseconds after that start
  std::string who;
  std::string reason;
};

/// What the clocks say.
struct Clocks {
  std::int64_t wall = 0;  ///< milliseconds since 1970
  toolsystem::BootTime boot;
};

Clocks clocksNow();

/// A lease that begins now.
Lease leaseOf(const std::vector<std::string>& _classes, std::chrono::milliseconds _duration, const Clocks& _now);

/// Whether its time is over. Until the system is started again that is decided by the time since its start, which does
/// not jump when somebody sets the clock; afterwards by the clock. One that then shows a time before the lease began is
/// not trusted, and the lease is over.
bool isOver(const Lease& _lease, const Clocks& _now);

/// How long it still has; 0 when it is over.
std::chrono::milliseconds timeLeft(const Lease& _lease, const Clocks& _now);

/// The text of the file of leases.
std::string leasesText(const std::vector<Lease>& _leases);

/// Reads such a text. What is no lease in it is left out; a text that is none at all has no leases.
std::vector<Lease> parseLeases(std::string_view _text);

/// What is left of a class list and its leases when those that are over have ended.
struct Swept {
  std::string list;
  std::vector<Lease> leases;
  std::vector<std::string> ended;  ///< the classes that went off
};

/// Ends the leases that are over: takes each of their classes off the list once, unless another lease still has it. A
/// class that is no longer on the list has been switched off by somebody else, and its lease forgets it.
Swept sweep(const std::string& _list, const std::vector<Lease>& _leases, const Clocks& _now);

/// The leases without these classes, which somebody has switched on or off for good.
std::vector<Lease> withoutLeased(std::vector<Lease> _leases, const std::vector<std::string>& _classes);

}  // namespace qmrkctl
