// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/finding.h"
#include "tools/qmrkctl/finding_catalogue.h"

namespace qmrkctl {

class KnownClasses;

using Findings = std::vector<Finding>;

/// A place in a file, with the path in the system's form.
FindingPlace placeIn(const ConfigurationFile& _file, TextPlace _place);
/// The file as a whole.
FindingPlace placeOf(const ConfigurationFile& _file);
/// Any file or folder as a whole.
/// @param _path in the library's form.
FindingPlace placeOf(const std::string& _path);

/// The text in double quotes.
std::string inQuotes(std::string_view _text);

/// A check stops after so many findings in one text: it is something else altogether, such as a log.
constexpr std::size_t mostFindings = 100;

// Each examines one aspect of a configuration and adds its findings. None changes anything.

/// Bytes that no editor shows: codes of the first hundred.
void checkBytes(const ConfigurationFile& _file, FileRole _role, Findings& _findings);

/// Which files are found, and why: the second hundred.
void checkRedirection(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

/// Of a generic file without REDIRECT_CA_NR: names the CAs to which it can lead. Where it has no settings of its own
/// either, that is why set-ups fail, in place of the keys that were found missing.
void judgeMissingRedirection(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

/// Whether an existing file can be read: the second hundred, too.
void checkUsable(const Viewpoint& _viewpoint, const ConfigurationFile& _file, FileRole _role, Findings& _findings);

enum class CfgUse {
  single,                  ///< the file of a CA
  generic,                 ///< all of its keys are read
  genericWithRedirection,  ///< only REDIRECT_CA_NR is read
};
/// How keys are spelled, and which are missing: the third hundred.
void checkKeys(const ConfigurationFile& _file, CfgUse _use, Findings& _findings);

/// The values of the keys: the third hundred, too.
void checkValues(const ConfigurationFile& _file, Findings& _findings);

/// Whether the name of the common log is one that the library uses itself.
/// @param _name the setting.
void checkUsedName(const ConfigurationFile& _cfg, const Setting& _name, Findings& _findings);

/// Whether the system can have the paths of the log and its folder, which are the user's and those of the keys
/// together.
/// @return whether it can; else there is a finding.
bool checkPathLength(const Configuration& _configuration, const LogPlaces& _logs, Findings& _findings);

/// The filter of a .cfg file: the fourth hundred.
void checkFilter(const ConfigurationFile& _cfg, Findings& _findings);

/// A class list alone, and against a filter and the classes that are known: the fourth hundred, too.
/// @param _filter the .cfg file; null: unknown.
void checkClassList(const ConfigurationFile& _init, const ConfigurationFile* _filter, const KnownClasses& _known,
                    Findings& _findings);

/// Folders and logs, their rights, and disk space: the fifth hundred.
void checkFolders(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

/// What hinders the rotation of application logs: the fifth hundred, too.
void checkBackups(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

/// The environment: the seventh hundred.
void checkEnvironment(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

}  // namespace qmrkctl
