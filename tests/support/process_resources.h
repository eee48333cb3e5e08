// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iosfwd>

namespace testsupport {

/// The resources that this process has in use.
struct ProcessResources {
  std::size_t threads = 0;
  std::size_t files = 0;          ///< open files, event files among them
  std::size_t handles = 0;        ///< handles of events and threads
  std::size_t eventMappings = 0;  ///< mapped files of events

  bool operator==(const ProcessResources&) const = default;
};

ProcessResources processResources();

std::ostream& operator<<(std::ostream& _stream, const ProcessResources& _resources);

}  // namespace testsupport
