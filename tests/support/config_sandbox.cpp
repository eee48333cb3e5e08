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

void ConfigSandbox::writeDemoOfCa12(const std::string& _keys) const {
  writeInit("CA12", "Demo.App;\nDemo.Net.error;\n");
  writeCfg("CA12", "CA_NR=CA12\n" + _keys +
                       "COMMON_LOG_FILE_NAME=common.log\n"
                       "COMMON_LOG_FILE_ROOT=Logs\\Common\n"
                       "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;Demo.Disk\n");
}

std::string ConfigSandbox::masked(const std::string& _text) const {
  return replaced(replaced(replaced(_text, appData_, "<APPDATA>"), commonProgramFiles_, "<CFGBASE>"), commonAppData_,
                  "<INITBASE>");
}

}  // namespace testsupport
