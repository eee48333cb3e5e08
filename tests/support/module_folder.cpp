// SPDX-License-Identifier: MIT
#include "tests/support/module_folder.h"

#include <cstdlib>

#include "tests/support/config_sandbox.h"

namespace testsupport {
namespace {

// Both systems search the folders of this variable last.
constexpr char folderVariable[] = "PATH";

}  // namespace

ModuleFolder::ModuleFolder(const std::string& _folder) {
  const char* const before = std::getenv(folderVariable);
  before_ = before != nullptr ? before : "";
  setEnvironment(folderVariable, _folder);
}

ModuleFolder::~ModuleFolder() { setEnvironment(folderVariable, before_); }

}  // namespace testsupport
