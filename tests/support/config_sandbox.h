// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace testsupport {

/// Base folders for one test, in which the library finds its configuration and writes its logs while the object lives.
/// On Linux they are new folders named by the overrides of the environment (child processes inherit them). On Windows,
/// which has no overrides, they are the shell folders: the sandbox removes the product folders at both ends, and
/// whatever else is new in them at the end. DEFAULT_CA_NR is unset at the construction and again at the end. One
/// sandbox may live at a time in a process.
class ConfigSandbox {
 public:
  ConfigSandbox();
  ~ConfigSandbox();
  ConfigSandbox(const ConfigSandbox&) = delete;
  ConfigSandbox& operator=(const ConfigSandbox&) = delete;

  /// The three base folders as the library's path strings begin with them.
  const std::string& appData() const { return appData_; }
  const std::string& commonProgramFiles() const { return commonProgramFiles_; }
  const std::string& commonAppData() const { return commonAppData_; }

  /// The names in the folder of the user's data that were not there at the construction, sorted.
  std::vector<std::string> newInAppData() const { return newIn(appData_, formerAppData_); }

  /// The folders of the .cfg and of the .init files, without a final separator; both exist.
  std::string cfgFolder() const { return commonProgramFiles_ + "\\Orvane Shared\\qmrk\\logging\\cfg"; }
  std::string initFolder() const { return commonAppData_ + "\\Orvane\\qmrk\\logging"; }
  /// The default log root; does not exist at first.
  std::string logFolder() const { return appData_ + "\\Orvane\\Quillmark\\Logging"; }

  /// Paths of the files of a CA, whose letter case stays as it is.
  std::string cfgPath(const std::string& _ca) const { return cfgFolder() + "\\qmrk_logging_" + _ca + ".cfg"; }
  std::string initPath(const std::string& _ca) const { return initFolder() + "\\qmrk_logging_" + _ca + ".init"; }

  void writeCfg(const std::string& _ca, const std::string& _bytes) const { writeFile(cfgPath(_ca), _bytes); }
  void writeInit(const std::string& _ca, const std::string& _bytes) const { writeFile(initPath(_ca), _bytes); }

  /// Writes the configuration of CA12 with a common log for the classes of "Demo", after the given keys, and the list
  /// of classes that are on.
  void writeDemoOfCa12(const std::string& _keys) const;

  /// The text with the base folders replaced by <APPDATA>, <CFGBASE> and <INITBASE>, for comparison with a golden.
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

/// Sets or, with an empty value, unsets a variable of this process and of the children started later.
void setEnvironment(const std::string& _name, const std::string& _value);

}  // namespace testsupport
