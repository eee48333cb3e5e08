// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// The text of a generated generic file that redirects to a CA.
std::string genericCfgText(const std::string& _ca);

/// Whether a name is that of a CA's own configuration file, by the parts that it contains.
bool isCaCfgFileName(const std::string& _name);

/// Cuts the CA out of a file name: from its first "C" or "A" up to its first ".". Empty when there is nothing between.
std::string caOfFileName(const std::string& _name);

}  // namespace Quillmark_logging
