// SPDX-License-Identifier: MIT
#include "quillmark_logging.h"
#include "trace/trace_flags.h"

namespace Quillmark_logging {

bool isTraceEnabled() { return loadTimeTrace(); }

}  // namespace Quillmark_logging
