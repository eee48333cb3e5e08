// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// The text of a record of the class store, without the time stamp and the line end.
/// @param _caller if empty, the record names none.
std::string errorRecordText(const std::string& _ca, const std::string& _text, const std::string& _caller);

}  // namespace Quillmark_logging
