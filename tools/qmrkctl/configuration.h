// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/configuration_file.h"
#include "tools/qmrkctl/finding.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

enum class CaOrigin { option, environment, builtIn };

/// Where the logs of a configuration are, in the library's form.
struct LogPlaces {
  std::string folder;             ///< the log root
  std::string commonLog;          ///< empty: COMMON_LOG_FILE_NAME is missing
  std::string applicationFolder;  ///< of the application logs
  std::string errorRecords;       ///< qmrk.info in that folder
};

/// The configuration that a set-up for a CA finds in a process of a viewpoint, by the library's rules. Nothing is
/// changed: a file that a set-up would generate is only reported.
struct Configuration {
  std::string caAsked;  ///< as given
  CaOrigin origin = CaOrigin::builtIn;
  std::string caInEffect;         ///< in upper case; "GE" where the CA's own file is missing
  std::string caOfFiles;          ///< the CA whose files are read: for "GE", the one it redirects to
  bool isFallenBack = false;      ///< the CA's own .cfg file is missing
  bool isRedirected = false;      ///< "GE" leads to another CA
  bool wouldBeGenerated = false;  ///< a set-up would first write a generic file
  std::string failure;            ///< why a set-up ends before it reads a key; empty if it does not

  // Folders in the library's form, without a final separator; empty if the system knows none.
  std::string cfgBase;   ///< the machine's shared program files
  std::string initBase;  ///< the machine's application data
  std::string userBase;  ///< the user's application data
  std::string cfgFolder;
  std::string initFolder;

  ConfigurationFile generic;  ///< qmrk_logging_GE.cfg
  ConfigurationFile asked;    ///< the .cfg file of the CA asked for
  ConfigurationFile cfg;      ///< the .cfg file that is read
  ConfigurationFile init;     ///< the class list

  std::optional<LogPlaces> logs;         ///< no value: the system knows no folder for the user
  std::optional<LogPlaces> genericLogs;  ///< of "GE", where a set-up writes its error records

  /// The effective value of a key, as written; null if the .cfg file is unreadable or has none.
  const std::string* value(std::string_view _key) const;

  /// Whether a boolean key is on.
  bool isOn(std::string_view _key) const;
};

/// Finds and reads the configuration for a CA.
/// @param _ca in any letter case; empty: the default CA of the viewpoint's environment.
Configuration readConfiguration(const Viewpoint& _viewpoint, const std::string& _ca);

/// The path, in the library's form, of the .cfg file that a value of REDIRECT_CA_NR names.
std::string redirectedCfgPath(const Configuration& _configuration, const std::string& _redirectCa);

/// The CAs that have a .cfg file, "GE" included, spelled as in the file names and sorted.
std::vector<std::string> installedCas(const Viewpoint& _viewpoint);

/// Those of them that an application may name. A CA in lower case is found by no name; it is left out where "GE"
/// redirects to it.
std::vector<std::string> casToName(const Viewpoint& _viewpoint);

/// Reports everything that is wrong with a configuration: its files, folders and class list.
/// @param _knownLogs the names of the logs of running applications; empty: unknown.
std::vector<Finding> checkConfiguration(const Viewpoint& _viewpoint, const Configuration& _configuration,
                                        const std::vector<std::string>& _knownLogs = {});

enum class FileRole { cfg, init };

/// The same for a single file.
std::vector<Finding> checkFile(const Viewpoint& _viewpoint, const ConfigurationFile& _file, FileRole _role);

}  // namespace qmrkctl
