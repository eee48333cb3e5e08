// SPDX-License-Identifier: MIT
#include "tests/support/config_sandbox.h"

namespace testsupport {

ConfigSandbox::ConfigSandbox() {
  setEnvironment("DEFAULT_CA_NR", "");
  enter();
  makeFolders(cfgFolder());
  makeFolders(initFolder());
}

ConfigSandbox::~ConfigSandbox() {
  leave();
  setEnvironment("DEFAULT_CA_NR", "");
}

std::string ConfigSandbox::masked(const std::string& _text) const {
  return replaced(replaced(replaced(_text, appData_, "<APPDATA>"), commonProgramFiles_, "<CFGBASE>"), commonAppData_,
                  "<INITBASE>");
}

}  // namespace testsupport
