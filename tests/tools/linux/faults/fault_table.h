// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/tools/linux/faults/fault_installation.h"

namespace testsupport {

/// What the library does in a broken installation.
struct FaultEffect {
  bool setsUp = true;               ///< whether the set-up says true
  std::vector<std::string> logged;  ///< those of the four classes that reach the common log
};

/// What a command must name.
struct NamedFault {
  std::string code;
  std::string file;  ///< the end of its path; empty: none
  int line = 0;      ///< 0: the file as a whole
  std::string fix;   ///< a part of the text
};

/// One fault. The texts are those of the page.
struct Fault {
  std::string what;
  std::string does;
  std::function<void(FaultInstallation&)> make;
  FaultEffect effect;
  NamedFault named;
  /// Arguments of LogTest.
  std::vector<std::string> arguments = {};
  /// What else shows the effect after LogTest has run; empty: nothing.
  std::function<bool(const FaultInstallation&)> proves = {};
  /// The command of qmrkctl that names it.
  std::vector<std::string> command = {"check"};
};

/// Faults in what is written in files.
std::vector<Fault> faultsOfTexts();
/// Faults in the name of the common log.
std::vector<Fault> faultsOfNames();
/// Faults in which files are found.
std::vector<Fault> faultsOfFiles();
/// Faults of folders, rights and space.
std::vector<Fault> faultsOfPlaces();
/// Faults of variables.
std::vector<Fault> faultsOfEnvironment();

/// Faults of applications that run.
std::vector<Fault> faultsOfProcesses();

/// All of them, in the order of the page.
std::vector<Fault> allFaults();

}  // namespace testsupport
