// SPDX-License-Identifier: MIT
#include <boost/logging/logging.hpp>

#include "quillmark_logging.h"

/// Sets up the default logs and logs a line through them.
/// @return whether the set-up succeeded.
extern "C" __declspec(dllexport) int setUpAndLog() {
  if (!Quillmark_logging::initDefaultLogs("Plugin", "CA12", false)) return 0;
  const boost::logging::logger log("Plugin.info");
  QMRK_LOG(log) << "logged by the plugin";
  return 1;
}
