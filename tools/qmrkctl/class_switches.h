// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/status/process_status.h"

namespace qmrkctl {

/// What applying a class list has switched in a process.
struct ClassSwitches {
  std::vector<std::string> on;
  std::vector<std::string> off;
};

/// By the pages before and after it. A log that was created since the first was written had the state that the list
/// applied then gave it, as far as the page holds that list: a page has room for the beginning of a long one.
ClassSwitches switchesBetween(const ClassStatus& _before, const ClassStatus& _after);

}  // namespace qmrkctl
