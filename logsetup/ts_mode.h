// SPDX-License-Identifier: MIT
#pragma once

#include <boost/logging/logging.hpp>

#include "trace/trace_flags.h"

namespace Quillmark_logging {

/// The appender as this library connects it: with a writer thread of its own if the process is in thread-safe mode,
/// else unchanged.
inline boost::logging::appender threadSafeIfConfigured(const boost::logging::appender& _appender) {
  if (!tsMode()) return _appender;
  return boost::logging::ts_appender(_appender, 0);
}

}  // namespace Quillmark_logging
