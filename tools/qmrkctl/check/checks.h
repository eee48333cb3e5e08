// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/finding.h"
#include "tools/qmrkctl/finding_catalogue.h"

namespace qmrkctl {

using Findings = std::vector<Finding>;

/// A place in a file, which is shown in the system's form.
FindingPlace placeIn(const ConfigurationFile& _file, TextPlace _place);
FindingPlace placeOf(const std::string& _path);

/// The text in double quotes.
std::string inQuotes(std::string_view _text);

// Each looks at one side of a configuration and adds what it finds. Nothing is changed.

/// What no editor shows: codes of the first hundred.
void checkBytes(const ConfigurationFile& _file, FileRole _role, Findings& _findings);

/// Which files are found: the second hundred.
void checkRedirection(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

/// Whether a file that is there can be read, of the second hundred too.
void checkUsable(const Viewpoint& _viewpoint, const ConfigurationFile& _file, FileRole _role, Findings& _findings);

/// How keys are written, and which are there: the third hundred.
enum class CfgUse {
  single,                  ///< the file of a CA
  genericWithRedirection,  ///< only REDIRECT_CA_NR is read
};
void checkKeys(const ConfigurationFile& _file, CfgUse _use, Findings& _findings);

/// What the values of a file that is read are: the third hundred too.
void checkValues(const ConfigurationFile& _file, Findings& _findings);

/// The filter of a .cfg file: the fourth hundred.
void checkFilter(const ConfigurationFile& _cfg, Findings& _findings);

/// A class list by itself, and with a filter and the logs of running applications, where they are known.
/// @param _filter the .cfg file; null: not known.
void checkClassList(const ConfigurationFile& _init, const ConfigurationFile* _filter,
                    const std::vector<std::string>& _knownLogs, Findings& _findings);

/// Folders, logs, their rights and the space for them: the fifth hundred.
void checkFolders(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

/// The environment: the seventh hundred.
void checkEnvironment(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings);

}  // namespace qmrkctl
