// SPDX-License-Identifier: MIT
#include <boost/logging/logging.hpp>

#include "quillmark_logging.h"

/// Sets up the default logs and logs a thousand numbered lines through them.
/// @return whether the set-up succeeded.
extern "C" __attribute__((visibility("default"))) int setUpAndLog() {
  if (!Quillmark_logging::initDefaultLogs("Plugin", "CA12", false)) return 0;
  const boost::logging::logger log("Plugin.info");
  for (int i = 0; i < 1000; ++i)
    QMRK_LOG(log) << "line " << i << " of the plugin";
  return 1;
}

/// Creates a listener that nobody destroys.
/// @return whether its thread was started.
extern "C" __attribute__((visibility("default"))) int startListener() { return (new LogEventHandler)->isCreated(); }
