// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "platform/shell_folder.h"

namespace platform {

/// Of whom the base folders are asked.
struct BaseFolderSource {
  /// The value of a variable of the environment; null when it is unset.
  std::function<const char*(const char*)> variable;
  /// Reads the home of the password entry; false when there is none.
  std::function<bool(std::string&)> home;
};

/// shellFolder by these answers. Pure, safe from any thread if the answers are.
/// @param _path untouched on failure.
bool baseFolder(ShellFolder _folder, const BaseFolderSource& _source, std::string& _path);

}  // namespace platform
