// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/qmrkctl/json.h"

namespace qmrkctl {

/// Who runs this program, for records: the user, and where they are known the one who called sudo and the one who
/// logged in.
Json actorJson();

/// The same in one text: "root (sudo by anna)".
std::string actorText();

}  // namespace qmrkctl
