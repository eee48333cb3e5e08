// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/errors.h"

namespace Quillmark_logging {

/// Decides what the attempt to create one step of a path means for createDirectory, and traces it.
/// @param _step the path up to and including this step.
/// @param _created whether the system created it.
/// @param _error why it did not; a folder that appeared meanwhile counts as created.
/// @param _resultSoFar result of the earlier steps, which a failure without a reason leaves as it is.
/// @return the result up to this step.
bool folderStepResult(const std::string& _step, bool _created, platform::ErrorCode _error, bool _resultSoFar);

}  // namespace Quillmark_logging
