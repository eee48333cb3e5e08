// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>

namespace stress {

/// How often a case repeats what the short form repeats so often: QMRK_STRESS_SCALE times as often, which is 1 when it
/// is not set.
int scaled(int _short);

/// Tells the figures of a case, for the report.
void tell(const std::string& _figures);

template <class... Parts>
void report(const Parts&... _parts) {
  std::ostringstream text;
  (text << ... << _parts);
  tell(text.str());
}

}  // namespace stress
