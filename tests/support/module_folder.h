// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// While it lives, the system finds modules also in the folder, after the folders of the program and of the loader.
class ModuleFolder {
 public:
  explicit ModuleFolder(const std::string& _folder);
  ~ModuleFolder();
  ModuleFolder(const ModuleFolder&) = delete;
  ModuleFolder& operator=(const ModuleFolder&) = delete;

 private:
  std::string before_;
};

}  // namespace testsupport
