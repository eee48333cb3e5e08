// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/followed_logs.h"

namespace qmrkctl {

std::vector<std::string> logsThatFollow(const std::vector<RunningProcess>& _processes, const std::string& _initPath) {
  std::vector<std::string> logs;
  for (const RunningProcess& process : _processes) {
    if (!process.status || process.status->initPath.bytes != _initPath) continue;
    // Where not all of them are shown, none is known to be missing.
    if (process.status->classes.logsLeftOut > 0) return {};
    for (const LogState& log : process.status->classes.logs)
      logs.push_back(log.name);
  }
  return logs;
}

}  // namespace qmrkctl
