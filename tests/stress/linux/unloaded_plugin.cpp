// SPDX-License-Identifier: MIT
#include <boost/logging/logging.hpp>

#include "quillmark_logging.h"

namespace {

const boost::logging::logger pluginLog("Stress.plugin");  // NOLINT(cert-err58-cpp): as plugins have them

}  // namespace

/// Sets up the default logs and logs one line.
/// @return whether the set-up succeeded.
extern "C" __attribute__((visibility("default"))) int logOnce(int _round) {
  if (!Quillmark_logging::initDefaultLogs("Plugin", "CA12", false)) return 0;
  QMRK_LOG(pluginLog) << "round " << _round;
  return 1;
}
