// SPDX-License-Identifier: MIT
#include "tests/support/process_resources.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <string>

#include "platform/linux/handle_table.h"

namespace testsupport {
namespace {

std::size_t entriesOf(const char* _folder) {
  const std::filesystem::directory_iterator entries(_folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

// A thread that was joined may stay listed for a moment: who joins it wakes before the system has removed it. Its
// flags, the ninth field of its stat, tell by then that it is exiting (proc(5)).
bool isExiting(const std::filesystem::path& _task) {
  constexpr unsigned long exitingFlag = 0x4;
  std::ifstream file(_task / "stat");
  std::string text;
  std::getline(file, text);
  const std::size_t nameEnd = text.rfind(')');
  if (nameEnd == std::string::npos) return true;  // It has gone meanwhile.
  std::istringstream fields(text.substr(nameEnd + 1));
  std::string skipped;
  for (int field = 3; field < 9; ++field)
    fields >> skipped;
  unsigned long flags = 0;
  fields >> flags;
  return (flags & exitingFlag) != 0;
}

std::size_t threads() {
  const std::filesystem::directory_iterator tasks("/proc/self/task");
  return static_cast<std::size_t>(
      std::count_if(begin(tasks), end(tasks), [](const auto& _task) { return !isExiting(_task.path()); }));
}

std::size_t mappingsOfEvents() {
  std::ifstream maps("/proc/self/maps");
  std::size_t mappings = 0;
  for (std::string line; std::getline(maps, line);) {
    mappings += line.find("/dev/shm/qmrk-") != std::string::npos ? 1 : 0;
  }
  return mappings;
}

}  // namespace

ProcessResources processResources() {
  return {threads(), entriesOf("/proc/self/fd"), platform::HandleTable::instance().size(), mappingsOfEvents()};
}

std::ostream& operator<<(std::ostream& _stream, const ProcessResources& _resources) {
  return _stream << _resources.threads << " threads, " << _resources.files << " files, " << _resources.handles
                 << " handles, " << _resources.eventMappings << " mappings of events";
}

}  // namespace testsupport
