// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/logtest/class_log.h"
#include "tools/logtest/options.h"
#include "tools/logtest/setup_facts.h"

namespace logtest {

/// Tells on the standard output where the logs lie and which classes are on.
/// @param _facts those that the set-up left.
void reportLogs(const Options& _options, const SetupFacts& _facts, const std::vector<ClassLog>& _classes);

/// Tells on the standard error stream why the set-up failed, and where the library has recorded problems.
/// @param _facts those that the set-up left.
void reportFailure(const SetupFacts& _facts);

/// Tells on the standard error stream why the log file of an application could not be set up after the default logs.
void reportAppFailure(const std::string& _app, const SetupFacts& _facts);

/// Tells the versions of the library and of this program on the standard output.
void reportVersions();

}  // namespace logtest
