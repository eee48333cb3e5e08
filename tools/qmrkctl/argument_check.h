// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace qmrkctl {

/// Refuses an empty argument: a script whose variable is unset must not reach what happens without the argument.
/// @return what is wrong with it, as the parser of the command line takes it; empty: nothing.
inline std::string checkNotEmpty(const std::string& _argument) { return _argument.empty() ? "it is empty" : ""; }

}  // namespace qmrkctl
