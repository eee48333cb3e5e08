// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace qmrkctl {

/// The fewest bytes to insert, delete, replace or swap with their neighbour that turn one text into the other. No place
/// is edited twice.
int editDistance(std::string_view _one, std::string_view _other);

/// The known name that was probably meant: the same in another letter case, else the nearest, if at most a quarter of
/// the longer one differs; empty if there is none, or the name has more than 64 bytes.
std::string similarName(std::string_view _name, std::span<const std::string_view> _known);

/// Whether somebody probably wrote the one name where the other was meant, though either may be a name: in another
/// letter case, two letters swapped, one left out, doubled or replaced. Digits make names differ, and so do first
/// letters and further ones at the end; names of three letters need more likeness, and the shortest ones have none.
bool isSlip(std::string_view _written, std::string_view _meant);

/// Whether two texts are equal but for the case of ASCII letters.
bool isSameIgnoringCase(std::string_view _one, std::string_view _other);

}  // namespace qmrkctl
