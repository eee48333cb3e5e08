// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string_view>

#include "tools/qmrkctl/doctor/why_chain.h"

namespace qmrkctl {

/// The status page of the process; null: no process is asked about, or it shows none.
const ProcessStatus* statusOf(const WhyQuestion& _question);

/// Whether the process goes on by a .cfg file that is gone now.
bool hasLostCfg(const WhyQuestion& _question);

/// The first finding of the process with one of these codes; null: it has none.
const Finding* findingAmong(const WhyQuestion& _question, std::initializer_list<std::string_view> _codes);

// Find the fault of the configuration that explains why a step fails. A fault says more than the step itself could:
// that LOG_STATE is missing because the file is UTF-16, or that a class is off because two lines are joined. Null: none
// explains it. The result points into the question.

/// Why the .cfg file is not found or cannot be read.
const Finding* faultOfCfg(const WhyQuestion& _question);

/// Why a key is missing or has an unintended value.
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
