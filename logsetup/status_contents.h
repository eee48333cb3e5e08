// SPDX-License-Identifier: MIT
#pragma once

#include "logsetup/set_up_status.h"

namespace Quillmark_logging {

/// Shows on the status page what a set-up call has found out, with the logs and files as they are now.
void showSetUp(const SetUpStatus::Notes& _notes, const FoundConfiguration& _found) noexcept;

}  // namespace Quillmark_logging
