// SPDX-License-Identifier: MIT
#include "config/load_time_switches.h"

#include "config/cfg_data_manager.h"
#include "quillmark_logging_names.h"
#include "trace/trace_flags.h"

namespace Quillmark_logging {

void readLoadTimeSwitches() {
  CfgDataManager* const manager = CfgDataManager::getInstance(false);
  setLoadTimeTrace(manager->getCfgFlag(QMRK_TRACE, GENERIC_CA));
  setTsMode(manager->getCfgFlag(TS_APPENDERS, GENERIC_CA));
  setFreeFunctionTrace(loadTimeTrace());
}

namespace {

// Everything that this uses is initialised by the compiler, so the order among the static initialisers is no matter.
[[maybe_unused]] const bool switchesWereRead = (readLoadTimeSwitches(), true);

}  // namespace

}  // namespace Quillmark_logging
