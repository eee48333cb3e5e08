// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace testsupport {

/// Base folders for one test, in which the library finds its configuration and writes its logs while the object lives.
/// On Linux they are new folders, named by environment variables, which child processes inherit. On Windows, which has
/// no such variables, they are the shell folders: the sandbox removes the product folders before and after the test,
/// and whatever else is new in them after it. It unsets DEFAULT_CA_NR before and after. One may live in a process.
class ConfigSandbox {
 public:
  ConfigSandbox();
  ~ConfigSandbox();
  ConfigSandbox(const ConfigSandbox&) = delete;
  ConfigSandbox& operator=(const ConfigSandbox&) = delete;

  /// The three base folders, in the library's form.
  const std::string& appData() const { return appData_; }
  const std::string& commonProgramFiles() const { return commonProgramFiles_; }
  const std::string& commonAppData() const { return commonAppData_; }

  /// The names in the user's data folder that did not exist at the construction, sorted.
  std::vector<std::string> newInAppData() const { return newIn(appData_, formerAppData_); }

  /// The folders of the .cfg and of the .init files, without a final separator; both exist.
  std::string cfgFolder() const { return commonProgramFiles_ + "\\Orvane Shared\\qmrk\\logging\\cfg"; }
  std::string initFolder() const { return commonAppData_ + "\\Orvane\\qmrk\\logging"; }
  /// The default log root, which does not exist at first.
  std::string logFolder() const { return appData_ + "\\Orvane\\Quillmark\\Logging"; }

  /// The paths of a CA's files. Keeps the letter case of the CA.
  std::string cfgPath(const std::string& _ca) const { return cfgFolder() + "\\qmrk_logging_" + _ca + ".cfg"; }
  std::string initPath(const std::string& _ca) const { return initFolder() + "\\qmrk_logging_" + _ca + ".init"; }

  void writeCfg(const std::string& _ca, const std::string& _bytes) const { writeFile(cfgPath(_ca), _bytes); }
  void writeInit(const std::string& _ca, const std::string& _bytes) const { writeFile(initPath(_ca), _bytes); }

  /// Writes the configuration of CA12: the given keys, then a common log for the classes of "Demo"; and its class list.
  void writeDemoOfCa12(const std::string& _keys) const;

  /// The text with <APPDATA>, <CFGBASE> and <INITBASE> for the base folders, for comparison with a golden.
  std::string masked(const std::string& _text) const;

 private:
  void enter();
  void leave();
  static std::vector<std::string> newIn(const std::string& _folder, const std::vector<std::string>& _former);

  TemporaryFolder folder_;
  std::string appData_;
  std::string commonProgramFiles_;
  std::string commonAppData_;
  std::vector<std::string> formerAppData_;
};

/// Sets or, with an empty value, unsets an environment variable of this process and its later children.
void setEnvironment(const std::string& _name, const std::string& _value);

}  // namespace testsupport
