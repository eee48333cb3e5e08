// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/status/process_status.h"

namespace qmrkctl {

/// The logs of a process that applying a class list switched.
struct ClassSwitches {
  std::vector<std::string> on;
  std::vector<std::string> off;
};

/// Compares the pages before and after. For a log created in between, the list applied before decides whether it was
/// on, as far as the page holds that list: a page has room only for the beginning of a long one.
ClassSwitches switchesBetween(const ClassStatus& _before, const ClassStatus& _after);

}  // namespace qmrkctl
