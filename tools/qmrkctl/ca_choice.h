// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/json.h"

namespace qmrkctl {

/// How a configuration arrived at its CA, in words: "CA GE (the built-in default), redirected to CA12".
std::string caText(const Configuration& _configuration);

/// The same as an object: asked, origin, inEffect, files, fallenBack, wouldBeGenerated.
Json caJson(const Configuration& _configuration);

/// Whether a CA was named on the command line that is not installed, so that "GE" would answer for it.
bool isNamedCaMissing(const Configuration& _configuration);

/// Says so, and which CA is shown instead.
void tellOtherCa(const Configuration& _configuration);

}  // namespace qmrkctl
