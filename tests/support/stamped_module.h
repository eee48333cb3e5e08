// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/module_version.h"

namespace testsupport {

/// Writes a file into a folder that carries a version as the binaries of a build do, under the name by which this
/// system finds the module ("qmrk_log.dll" or "LogTest.exe").
void writeStampedModule(const std::string& _folder, const std::string& _module, const platform::FixedVersion& _version);

/// The same, as a binary that carries no version.
void writeUnstampedModule(const std::string& _folder, const std::string& _module);

}  // namespace testsupport
