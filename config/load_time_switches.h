// SPDX-License-Identifier: MIT
#pragma once

namespace Quillmark_logging {

/// Reads QMRK_TRACE and then TS_APPENDERS of the generic configuration and sets the flags of the process by them. Runs
/// once by itself while the library is loaded, and creates the configuration store before any other thread can ask for
/// it. Prints nothing.
void readLoadTimeSwitches();

}  // namespace Quillmark_logging
