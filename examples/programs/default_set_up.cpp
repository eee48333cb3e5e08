// SPDX-License-Identifier: MIT
// The default logs: one call at the start, then a line in the common log.

#include <quillmark_logging.h>
#include <boost/logging/logging.hpp>

static boost::logging::logger info("Demo.App.info");  // a handle on a named log; usable at any time

int main() {
  // Default logs: the CA of the environment variable DEFAULT_CA_NR, else the generic one; false: no console.
  if (!Quillmark_logging::initDefaultLogs("demo", false)) return 1;  // the file qmrk.info says why

  QMRK_LOG(info) << "started with " << 3 << " workers";
}
