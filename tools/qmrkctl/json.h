// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>

namespace qmrkctl {

/// Keys keep the order in which they were added, for people who read the result.
using Json = nlohmann::ordered_json;

}  // namespace qmrkctl
