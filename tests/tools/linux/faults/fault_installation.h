// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/companion_process.h"
#include "tests/support/config_sandbox.h"

namespace testsupport {

/// A sound installation of CA12 to which "GE" is redirected, for a test to break; and the programs that run in it.
/// LogTest logs three lines into each of Demo.App.error, Demo.App.info, Demo.Net.error and Demo.Net.info; all of them
/// but the last one are on and go to the common log.
class FaultInstallation {
 public:
  FaultInstallation();
  ~FaultInstallation();
  FaultInstallation(const FaultInstallation&) = delete;
  FaultInstallation& operator=(const FaultInstallation&) = delete;

  /// Replaces a line of the .cfg file of CA12, from 1: CA_NR, LOG_STATE, COMMON_LOG_FILE_NAME, COMMON_LOG_FILE_ROOT,
  /// COMMON_LOG_FILE_FILTER, SPEC_LOG_ROTATION, SPEC_LOG_FILE_LIMIT, SPEC_NR_OF_LOG_FILES.
  /// @param _text with its line end; may be empty or several lines.
  void cfgLine(int _line, const std::string& _text);
  /// Replaces the whole file of CA12 or of "GE".
  void cfg(const std::string& _text) const { sandbox_.writeCfg("CA12", _text); }
  void generic(const std::string& _text) const { sandbox_.writeCfg("GE", _text); }
  void init(const std::string& _text) const { sandbox_.writeInit("CA12", _text); }
  std::string cfgText() const;

  /// Paths in the system's form.
  std::string cfgPath() const;
  std::string genericPath() const;
  std::string initPath() const;
  std::string data() const { return sandbox_.appData(); }
  std::string logFolder() const { return sandbox_.appData() + "/Logs/Common"; }
  std::string log() const { return logFolder() + "/common.log"; }
  std::string applicationLog() const { return logFolder() + "/Application logs/app_log.txt"; }
  const ConfigSandbox& sandbox() const { return sandbox_; }

  /// The programs run as that user from now on, with copies of their own that every user can reach.
  void runAs(unsigned int _uid);

  /// Sets or, with an empty value, unsets a variable; undone at the end.
  void environment(const std::string& _name, const std::string& _value);

  /// A file system of the test's own, without space, takes the place of the user's data.
  void fillDisk();

  /// A file system of the test's own, with so little space that it is soon full, is mounted on the user's data.
  void almostFillDisk();

  /// A file system of the test's own, with room for two folders but for no file in them, takes that place.
  void exhaustInodes();

  /// A file system of the test's own that is mounted read-only, with the log folder, takes that place.
  void protectDisk();

  /// LogTest with these arguments of a shell runs from now on; its listener listens.
  /// @param _limits commands of the shell before it.
  void start(const std::string& _arguments, const std::string& _limits = "");
  /// Puts another file in place of the library that a program started after runAs has loaded.
  void replaceLibrary() const;
  /// Sends a signal to it, and waits until it is stopped by it if that is what it does.
  void signal(int _signal) const;

  ChildResult logTest(const std::vector<std::string>& _arguments) const;
  ChildResult qmrkctl(const std::vector<std::string>& _arguments) const;

  /// Those of the four classes that have a line in a log.
  static std::vector<std::string> classesIn(const std::string& _log);

 private:
  void write() const;
  ChildResult run(const std::string& _program, const std::vector<std::string>& _arguments) const;

  ConfigSandbox sandbox_;
  TemporaryFolder programs_;
  std::vector<std::string> lines_;
  std::vector<std::string> variables_;
  std::string uid_;
  bool isMounted_ = false;
  bool isDataMounted_ = false;
  int running_ = -1;
  std::vector<CompanionProcess> companions_;
};

}  // namespace testsupport
