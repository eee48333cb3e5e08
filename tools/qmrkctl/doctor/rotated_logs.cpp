// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/rotated_logs.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <string>
#include <thread>
#include <utility>

#include "platform/native_path.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/doctor/written_files.h"
#include "tools/system/account.h"

namespace qmrkctl {
namespace {

// Between two looks, so that none falls on a rotation that is under way.
constexpr std::chrono::milliseconds betweenLooks{20};
constexpr int looks = 3;

// A log as more than one process may have it: where its file system is, and its path there.
using SharedLog = std::pair<std::string, std::string>;

bool writes(std::uint32_t _pid, const std::string& _path) {
  const auto names = namesOfWritten(_pid, _path);
  return !names || !names->empty();
}

// What the log is called by now; empty: it is where it was, or not open.
std::string formerLog(std::uint32_t _pid, const std::string& _path) {
  std::string found;
  for (int look = 0; look < looks; ++look) {
    if (look > 0) std::this_thread::sleep_for(betweenLooks);
    const auto names = namesOfWritten(_pid, _path);
    if (!names || names->empty() || std::ranges::find(*names, _path) != names->end()) return "";
    found = names->front();
  }
  return found;
}

std::string listed(const std::vector<const RunningProcess*>& _processes) {
  std::string text;
  for (const RunningProcess* const process : _processes) {
    if (!text.empty()) text += process == _processes.back() ? " and " : ", ";
    text += processText(*process);
  }
  return text;
}

}  // namespace

void checkRotatedLogs(const std::vector<const RunningProcess*>& _processes, std::vector<Finding>& _findings) {
  std::map<SharedLog, std::vector<const RunningProcess*>> writers;
  std::map<SharedLog, bool> isFailing;
  for (const RunningProcess* const process : _processes) {
    if (!process->status) continue;
    const std::string root = toolsystem::fileSystemOfProcess(static_cast<int>(process->pid()));
    for (const LogFileStatus& file : process->status->files) {
      if (file.kind != status::FileKind::rolling || file.path.isCut) continue;
      const std::string path = pathWithoutLinks(root, platform::nativePath(file.path.bytes));
      if (!writes(process->pid(), path)) continue;
      writers[{root, path}].push_back(process);
      isFailing[{root, path}] |= file.isFailing;
    }
  }
  for (const auto& [log, processes] : writers) {
    if (processes.size() > 1) {
      _findings.push_back(findingOf("Q618", {log.second, 0, 0}, listed(processes) + " rotate it"));
      continue;
    }
    const std::string former = isFailing[log] ? "" : formerLog(processes.front()->pid(), log.second);
    if (former.empty()) continue;
    _findings.push_back(
        findingOf("Q619", {log.second, 0, 0}, processText(*processes.front()) + " writes to " + former + " instead"));
  }
}

}  // namespace qmrkctl
