// SPDX-License-Identifier: MIT
#include "tests/support/config_sandbox.h"

#include <algorithm>
#include <iterator>

namespace testsupport {

ConfigSandbox::ConfigSandbox() {
  setEnvironment("DEFAULT_CA_NR", "");
  enter();
  formerAppData_ = namesIn(appData_);
  makeFolders(cfgFolder());
  makeFolders(initFolder());
}

ConfigSandbox::~ConfigSandbox() {
  leave();
  setEnvironment("DEFAULT_CA_NR", "");
}

std::vector<std::string> ConfigSandbox::newIn(const std::string& _folder, const std::vector<std::string>& _former) {
  const std::vector<std::string> names = namesIn(_folder);
  std::vector<std::string> added;
  std::set_difference(names.begin(), names.end(), _former.begin(), _former.end(), std::back_inserter(added));
  return added;
}

std::string ConfigSandbox::masked(const std::string& _text) const {
  return replaced(replaced(replaced(_text, appData_, "<APPDATA>"), commonProgramFiles_, "<CFGBASE>"), commonAppData_,
                  "<INITBASE>");
}

}  // namespace testsupport
