// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/errors.h"

namespace Quillmark_logging {

/// Decides what the attempt to create one step of a path means for createDirectory, and traces it.
/// @param _step the path up to and including this step.
/// @param _created whether the system has created it.
/// @param _error the reason when it has not; a folder that has appeared meanwhile counts as created.
/// @param _resultSoFar of the steps before, which a failure without a reason leaves as it is.
/// @return the result up to this step.
bool folderStepResult(const std::string& _step, bool _created, platform::ErrorCode _error, bool _resultSoFar);

}  // namespace Quillmark_logging
