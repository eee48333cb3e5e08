// SPDX-License-Identifier: MIT
#include "tests/support/process_resources.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>

#include "platform/linux/handle_table.h"

namespace testsupport {
namespace {

std::size_t entriesOf(const char* _folder) {
  const std::filesystem::directory_iterator entries(_folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
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
  return {entriesOf("/proc/self/task"), entriesOf("/proc/self/fd"), platform::HandleTable::instance().size(),
          mappingsOfEvents()};
}

std::ostream& operator<<(std::ostream& _stream, const ProcessResources& _resources) {
  return _stream << _resources.threads << " threads, " << _resources.files << " files, " << _resources.handles
                 << " handles, " << _resources.eventMappings << " mappings of events";
}

}  // namespace testsupport
