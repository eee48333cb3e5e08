// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/module_version.h"

namespace testsupport {

/// Writes a file that carries a version, like the binaries of a build, to a folder, under the name that the module
/// ("qmrk_log.dll" or "LogTest.exe") has on this system.
void writeStampedModule(const std::string& _folder, const std::string& _module, const platform::FixedVersion& _version);

/// The same, without a version.
void writeUnstampedModule(const std::string& _folder, const std::string& _module);

}  // namespace testsupport
