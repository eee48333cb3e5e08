// SPDX-License-Identifier: MIT
#pragma once

#include "logsetup/setup_status.h"

namespace Quillmark_logging {

/// Shows on the status page what a set-up call has found out, with the logs and files as they are now.
void showSetUp(const SetupStatus::Notes& _notes, const FoundConfiguration& _found) noexcept;

}  // namespace Quillmark_logging
