// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qmrkctl {

/// Why a class stays on without an entry of its own: "Demo.Net.info stays on: Demo.Net selects it".
/// @param _entries what remains on the list.
/// @return an empty text if no other entry selects it.
std::string coverText(const std::string& _name, const std::vector<std::string>& _entries);

/// The entries that are on for longer: those without an end, and those with a later one.
std::vector<std::string> entriesAfter(std::int64_t _end, const std::vector<std::string>& _entries,
                                      const std::map<std::string, std::int64_t>& _ends);

}  // namespace qmrkctl
