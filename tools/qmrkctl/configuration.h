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
  std::string applicationFolder;  ///< of the logs of single applications
  std::string errorRecords;       ///< qmrk.info in that folder
};

/// The configuration that a set-up for a CA meets in a process of a viewpoint, found by the rules of the library and
/// without changing anything: what would be generated is only said.
struct Configuration {
  std::string caAsked;  ///< as it was given
  CaOrigin origin = CaOrigin::builtIn;
  std::string caInEffect;         ///< in upper case; "GE" where the CA's own file is missing
  std::string caOfFiles;          ///< the CA whose files are read: that to which "GE" redirects
  bool isFallenBack = false;      ///< the .cfg file of the CA is missing
  bool isRedirected = false;      ///< "GE" leads to another CA
  bool wouldBeGenerated = false;  ///< a set-up writes a generic file first
  std::string failure;            ///< why a set-up ends before it reads a key; empty: it does not

  // Folders in the library's form, without a final separator; empty where the system knows none.
  std::string cfgBase;   ///< the machine's shared program files
  std::string initBase;  ///< the machine's application data
  std::string userBase;  ///< the user's application data
  std::string cfgFolder;
  std::string initFolder;

  ConfigurationFile generic;  ///< qmrk_logging_GE.cfg
  ConfigurationFile asked;    ///< the .cfg file of the CA asked for
  ConfigurationFile cfg;      ///< the .cfg file that is read
  ConfigurationFile init;     ///< the class list

  std::optional<LogPlaces> logs;         ///< no value: the system knows no folder of the user
  std::optional<LogPlaces> genericLogs;  ///< of "GE", where the records of the set-up go

  /// The value that counts for a key, as it is written; null when the .cfg file has none.
  const std::string* value(std::string_view _key) const;

  /// Whether a boolean key is on.
  bool isOn(std::string_view _key) const;
};

/// @param _ca in any letter case; empty: the default CA of the viewpoint's environment.
Configuration readConfiguration(const Viewpoint& _viewpoint, const std::string& _ca);

/// The .cfg file to which a value of REDIRECT_CA_NR leads.
std::string redirectedCfgPath(const Configuration& _configuration, const std::string& _redirectCa);

/// The names of the CAs that have a .cfg file in the folder, as they stand in the file names, sorted; "GE" too.
std::vector<std::string> installedCas(const Viewpoint& _viewpoint);

/// Everything that is wrong with a configuration, its files, folders and class lists.
/// @param _knownLogs the names of the logs that running applications have; empty: not known.
std::vector<Finding> checkConfiguration(const Viewpoint& _viewpoint, const Configuration& _configuration,
                                        const std::vector<std::string>& _knownLogs = {});

enum class FileRole { cfg, init };

/// The same of a file by itself.
std::vector<Finding> checkFile(const Viewpoint& _viewpoint, const ConfigurationFile& _file, FileRole _role);

}  // namespace qmrkctl
