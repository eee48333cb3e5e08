// SPDX-License-Identifier: MIT
#pragma once

#include <boost/logging/logging.hpp>
#include <string>

#include "trace/trace_flags.h"

namespace Quillmark_logging {

/// The appender as this library connects it: with a writer thread of its own if the process is in thread-safe mode,
/// else unchanged.
/// @param _file the file to which it writes; empty for the console.
inline boost::logging::appender threadSafeIfConfigured(const boost::logging::appender& _appender,
                                                       const std::string& _file = std::string()) {
  if (!tsMode()) return _appender;
  return boost::logging::ts_appender(_appender, 0, _file);
}

}  // namespace Quillmark_logging
