// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>

#include "tests/support/config_sandbox.h"

namespace testsupport {
namespace {

// Open to every user, so that a test may go on as an unprivileged one.
std::string makeBase(const std::string& _path) {
  std::filesystem::create_directory(_path);
  std::filesystem::permissions(_path, std::filesystem::perms::all);
  return _path;
}

}  // namespace

void ConfigSandbox::enter() {
  appData_ = makeBase(folder_.path() + "/appdata");
  commonProgramFiles_ = makeBase(folder_.path() + "/program-files");
  commonAppData_ = makeBase(folder_.path() + "/common-appdata");
  setEnvironment("QMRK_APPDATA", appData_);
  setEnvironment("QMRK_COMMON_PROGRAM_FILES", commonProgramFiles_);
  setEnvironment("QMRK_COMMON_APPDATA", commonAppData_);
}

void ConfigSandbox::leave() {
  setEnvironment("QMRK_APPDATA", "");
  setEnvironment("QMRK_COMMON_PROGRAM_FILES", "");
  setEnvironment("QMRK_COMMON_APPDATA", "");
}

void setEnvironment(const std::string& _name, const std::string& _value) {
  if (_value.empty()) {
    ::unsetenv(_name.c_str());
  } else {
    ::setenv(_name.c_str(), _value.c_str(), 1);
  }
}

}  // namespace testsupport
