// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/logtest/options.h"
#include "tools/logtest/setup_facts.h"

namespace logtest {

/// Logs the lines into the classes, a line of each class in turn, then tells on the standard output where the common
/// log lies and which classes are on.
/// @param _facts those that the set-up left, as below.
void logLines(const Options& _options, const SetupFacts& _facts);

/// Tells on the standard error stream why the set-up failed, and where the library has recorded problems.
/// @param _facts those that the set-up left.
void reportFailure(const SetupFacts& _facts);

}  // namespace logtest
