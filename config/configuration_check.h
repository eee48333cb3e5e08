// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Makes sure that a CA has a readable configuration file: falls back to "GE", and generates the generic file if that
/// is missing too. Records every problem.
/// @param _ca becomes "GE" when the CA's own file is missing.
/// @param _caller name of the application for the error records; may be empty.
/// @return whether a readable file is available.
bool checkSpecifiedConfiguration(std::string& _ca, const std::string& _caller);

}  // namespace Quillmark_logging
