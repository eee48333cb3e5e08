// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/logtest/class_log.h"
#include "tools/logtest/options.h"
#include "tools/logtest/setup_facts.h"

namespace logtest {

/// Prints on standard output where the logs are and which classes are on.
/// @param _facts what the set-up found.
void reportLogs(const Options& _options, const SetupFacts& _facts, const std::vector<ClassLog>& _classes);

/// Prints on standard error why the set-up failed, and where the library has recorded problems.
/// @param _facts what the set-up found.
void reportFailure(const SetupFacts& _facts);

/// Prints on standard error why an application's own log file could not be set up after the default logs.
void reportAppFailure(const std::string& _app, const SetupFacts& _facts);

/// Prints the versions of the library and of this program on standard output.
void reportVersions();

}  // namespace logtest
