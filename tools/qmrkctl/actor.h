// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/qmrkctl/json.h"

namespace qmrkctl {

/// Who runs this program, for records: the user and, where known, the user who called sudo and the one who logged in.
Json actorJson();

/// The user and the caller of sudo as one text: "root (sudo by anna)".
std::string actorText();

}  // namespace qmrkctl
