// SPDX-License-Identifier: MIT
#include "platform/linux/mapped_file.h"

#include <sys/sysmacros.h>

#include <cstdio>
#include <fstream>

namespace platform {

bool isMappingOf(const std::string& _line, dev_t _device, ino_t _file) {
  unsigned int deviceMajor = 0;
  unsigned int deviceMinor = 0;
  unsigned long long file = 0;
  // NOLINTNEXTLINE(cert-err34-c): the kernel writes the line
  if (std::sscanf(_line.c_str(), "%*x-%*x %*s %*x %x:%x %llu", &deviceMajor, &deviceMinor, &file) != 3) return false;
  return deviceMajor == major(_device) && deviceMinor == minor(_device) && file == _file;
}

std::optional<bool> mapsFile(std::uint32_t _processId, dev_t _device, ino_t _file) {
  std::ifstream maps("/proc/" + std::to_string(_processId) + "/maps");
  std::string line;
  bool isRead = false;
  while (std::getline(maps, line)) {
    isRead = true;
    if (isMappingOf(line, _device, _file)) return true;
  }
  if (!isRead) return std::nullopt;
  return false;
}

}  // namespace platform
