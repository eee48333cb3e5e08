// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>

namespace stress {

/// How often a case repeats something: as often as in the short form, times QMRK_STRESS_SCALE, which is 1 by default.
int scaled(int _short);

/// Gives the figures of a case to the report.
void tell(const std::string& _figures);

template <class... Parts>
void report(const Parts&... _parts) {
  std::ostringstream text;
  (text << ... << _parts);
  tell(text.str());
}

}  // namespace stress
