// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace toolsystem {

/// What forbids every user to write, whatever the rights are.
enum class WriteProtection {
  none,
  fileSystem,  ///< it is mounted read-only
  attribute,   ///< of the file or folder: "immutable" on Linux, "read-only" on Windows
};

/// @param _path an existing file or folder, in the system's form.
WriteProtection writeProtectionOf(const std::string& _path);

/// The command that takes such an attribute from the path behind it.
std::string_view attributeRemoval();

}  // namespace toolsystem
