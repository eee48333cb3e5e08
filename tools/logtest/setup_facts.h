// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace logtest {

/// What a set-up of the default logs for a CA meets, in the order in which it matters. Looked up without changing
/// anything.
struct SetupFacts {
  std::string ca;
  /// The configuration file of the CA, or, where that is missing, of the generic one. Empty: the system does not know
  /// the folder, or the CA is empty.
  std::string cfgFile;
  /// Whether it is the generic one because that of the CA is missing.
  bool fellBack = false;
  bool cfgExists = false;
  bool cfgIsReadable = false;
  std::optional<std::string> logState;
  std::optional<std::string> logFileName;
  /// The common log folder; without value: the system does not know the user's folder.
  std::optional<std::string> logFolder;
  bool logFolderExists = false;
  /// The file of the error records, where there is one.
  std::optional<std::string> errorRecords;
};

/// Nothing of it is asked through the library itself, whose trace would then show it.
/// @param _ca not yet replaced by anything.
SetupFacts gatherSetupFacts(const std::string& _ca);

}  // namespace logtest
