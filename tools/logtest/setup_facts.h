// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace logtest {

/// What a set-up of the default logs for a CA finds, in the order in which it looks. Paths are in the library's form.
struct SetupFacts {
  std::string ca;
  /// The configuration file of the CA or, if that is missing, the generic one. Empty if the system does not know the
  /// folder or the CA is empty.
  std::string cfgFile;
  /// Whether it is the generic one because the CA's is missing.
  bool fellBack = false;
  bool cfgExists = false;
  bool cfgIsReadable = false;
  std::optional<std::string> logState;
  std::optional<std::string> logFileName;
  /// The folder of the common log; no value if the system does not know the user's folder.
  std::optional<std::string> logFolder;
  bool logFolderExists = false;
  /// The file of the error records, if there is one.
  std::optional<std::string> errorRecords;
};

/// Gathers the facts. Changes nothing, and calls no function of the library, whose trace would show it.
/// @param _ca as the user gave it.
SetupFacts gatherSetupFacts(const std::string& _ca);

}  // namespace logtest
