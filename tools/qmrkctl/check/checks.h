// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/finding.h"
#include "tools/qmrkctl/finding_catalogue.h"

namespace qmrkctl {

using Findings = std::vector<Finding>;

/// A place in a file, which is shown in the system's form.
FindingPlace placeIn(const ConfigurationFile& _file, TextPlace _place);
FindingPlace placeOf(const std::string& _path);

enum class FileRole { cfg, init };

// Each looks at one side of a configuration and adds what it finds. Nothing is changed.

/// What no editor shows: codes of the first hundred.
void checkBytes(const ConfigurationFile& _file, FileRole _role, Findings& _findings);

}  // namespace qmrkctl
