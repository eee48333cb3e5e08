// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "tools/qmrkctl/json.h"

namespace qmrkctl {

enum class Severity { error, warning, note };

/// Something wrong or remarkable, with its place.
struct Finding {
  std::string code;  ///< "Q301"; "qmrkctl explain" knows each
  Severity severity = Severity::error;
  std::string file;  ///< empty: no place
  int line = 0;      ///< from 1; 0: the file as a whole
  int column = 0;    ///< from 1, in bytes; 0: the line as a whole
  std::string text;
  std::string effect;
  std::string fix;
};

/// "error", "warning" or "note".
std::string_view severityName(Severity _severity);

/// "error Q301 FILE:LINE:COLUMN TEXT", then "effect:" and "fix:" on indented lines. Leaves out what is absent, escapes
/// what could control a terminal, and ends with a line end.
std::string findingText(const Finding& _finding);

/// The finding as a JSON object, without keys for what is absent.
Json findingJson(const Finding& _finding);

}  // namespace qmrkctl
