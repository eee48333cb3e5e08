// SPDX-License-Identifier: MIT
#include "tests/support/module_folder.h"

#include <cstdlib>

#include "tests/support/config_sandbox.h"

namespace testsupport {
namespace {

// Both systems search the folders of this variable last.
constexpr char VARIABLE[] = "PATH";

}  // namespace

ModuleFolder::ModuleFolder(const std::string& _folder) {
  const char* const before = std::getenv(VARIABLE);
  before_ = before != nullptr ? before : "";
  setEnvironment(VARIABLE, _folder);
}

ModuleFolder::~ModuleFolder() { setEnvironment(VARIABLE, before_); }

}  // namespace testsupport
