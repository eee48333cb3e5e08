// SPDX-License-Identifier: MIT
#include "config/cfg_data_manager.h"

#include "trace/trace_line.h"

using Quillmark_logging::traceLineIf;

constinit std::atomic<bool> CfgDataManager::trace_{false};

CfgDataManager* CfgDataManager::getInstance(bool _trace) {
  // Never deleted: destructors of other objects may still look a value up.
  static constinit CfgDataManager* instance = nullptr;

  trace_.store(_trace, std::memory_order_relaxed);
  traceLineIf(tracing(), "==> CfgDataManager::getInstance()\r\n");
  if (instance == nullptr) {
    instance = new CfgDataManager;
    traceLineIf(tracing(), "<== CfgDataManager::getInstance() Instance created.\r\n");
  } else {
    traceLineIf(tracing(), "<== CfgDataManager::getInstance() Instance returned.\r\n");
  }
  return instance;
}
