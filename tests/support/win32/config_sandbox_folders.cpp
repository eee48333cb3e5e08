// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "platform/shell_folder.h"
#include "tests/support/config_sandbox.h"

namespace testsupport {
namespace {

std::string folderOf(platform::ShellFolder _folder) {
  std::string path;
  if (!platform::shellFolder(_folder, path)) std::abort();
  return path;
}

void removeProductFolders(const ConfigSandbox& _sandbox) {
  removeAll(_sandbox.appData() + "\\Orvane");
  removeAll(_sandbox.commonProgramFiles() + "\\Orvane Shared");
  removeAll(_sandbox.commonAppData() + "\\Orvane");
}

}  // namespace

void ConfigSandbox::enter() {
  appData_ = folderOf(platform::ShellFolder::userAppData);
  commonProgramFiles_ = folderOf(platform::ShellFolder::commonProgramFiles);
  commonAppData_ = folderOf(platform::ShellFolder::commonAppData);
  removeProductFolders(*this);
}

void ConfigSandbox::leave() {
  removeProductFolders(*this);
  for (const std::string& name : newInAppData()) {
    removeAll(appData_ + "\\" + name);
  }
}

void setEnvironment(const std::string& _name, const std::string& _value) {
  // The C run-time's copy of the environment goes to child processes and serves getenv; it sets the system's too.
  ::_putenv_s(_name.c_str(), _value.c_str());
}

}  // namespace testsupport
