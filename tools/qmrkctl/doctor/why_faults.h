// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "tools/qmrkctl/doctor/why_chain.h"

namespace qmrkctl {

// Which of the faults of a configuration explains why a step fails. A fault says more than the step itself could: that
// LOG_STATE is missing since the file is UTF-16, or that a class is off since two lines are joined. Null: none does.

/// Why the .cfg file is not found or not read.
const Finding* faultOfCfg(const WhyQuestion& _question);

/// Why a key is missing or has another value than was meant.
const Finding* faultOfKey(const WhyQuestion& _question, std::string_view _key);

const Finding* faultOfFolder(const WhyQuestion& _question);
const Finding* faultOfLog(const WhyQuestion& _question);
const Finding* faultOfSpace(const WhyQuestion& _question);

/// Why no entry of the filter selects the class.
const Finding* faultOfFilter(const WhyQuestion& _question);

/// Why the class list is not read.
const Finding* faultOfListFile(const WhyQuestion& _question);

/// Why no entry of the class list selects the class.
const Finding* faultOfList(const WhyQuestion& _question);

}  // namespace qmrkctl
