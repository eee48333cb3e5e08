// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/class_entries.h"

namespace qmrkctl {

/// How an entry of a filter or of a class list is written: empty, with blanks beside it, or as no name of a class is.
void checkEntry(const ClassEntry& _entry, const FindingPlace& _place, Findings& _findings);

/// Whether an entry is written as the name of a class can be.
bool isSoundEntry(std::string_view _pattern);

/// What follows the last ";" of a filter, which is dropped.
void checkDroppedEntry(std::string_view _dropped, const FindingPlace& _place, Findings& _findings);

}  // namespace qmrkctl
