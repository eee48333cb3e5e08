// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/module_version.h"

namespace testsupport {

/// Writes a file with a version, as a build stamps its binaries, into a folder, under the name by which this system
/// finds the module ("qmrk_log.dll" or "LogTest.exe").
void writeStampedModule(const std::string& _folder, const std::string& _module, const platform::FixedVersion& _version);

/// The same, without a version.
void writeUnstampedModule(const std::string& _folder, const std::string& _module);

}  // namespace testsupport
