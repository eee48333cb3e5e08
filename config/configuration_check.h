// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Makes sure that a readable configuration file exists for a CA: falls back to "GE", and generates the generic file
/// when that is missing too. Every problem leaves an error record.
/// @param _ca becomes "GE" when the CA's own file is missing.
/// @param _caller name of the application for the error records; may be empty.
/// @return whether a readable file is available.
bool checkSpecifiedConfiguration(std::string& _ca, const std::string& _caller);

}  // namespace Quillmark_logging
