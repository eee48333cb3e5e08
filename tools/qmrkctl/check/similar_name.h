// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace qmrkctl {

/// The number of characters to insert, delete, replace or exchange with their neighbour that turns one text into the
/// other (each place counts once).
int editDistance(std::string_view _one, std::string_view _other);

/// The known name that was probably meant: the same in another letter case or, failing that, the nearest, if it is near
/// enough; empty when there is none.
std::string similarName(std::string_view _name, std::span<const std::string_view> _known);

/// Whether two texts differ at most in the case of ASCII letters.
bool isSameIgnoringCase(std::string_view _one, std::string_view _other);

}  // namespace qmrkctl
