// SPDX-License-Identifier: MIT
#include "tools/system/process_condition.h"

#include <elf.h>

#include <fstream>
#include <string>

#include "tools/system/linux/process_maps.h"
#include "tools/system/linux/secure_process.h"

namespace toolsystem {
namespace {

bool mapsRemovedLibrary(const std::string& _folder) {
  std::ifstream file(_folder + "/maps");
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with(" (deleted)") && mapsLibrary(line)) return true;
  }
  return false;
}

bool movesFolders(const std::string& _folder) {
  std::ifstream file(_folder + "/environ", std::ios::binary);
  for (std::string variable; std::getline(file, variable, '\0');) {
    if (variable.starts_with("QMRK_") || variable.starts_with("XDG_DATA_HOME=")) return true;
  }
  return false;
}

}  // namespace

bool isSecureProcess(int _pid) {
  std::ifstream file("/proc/" + std::to_string(_pid) + "/auxv", std::ios::binary);
  for (unsigned long entry[2]; file.read(reinterpret_cast<char*>(entry), sizeof entry) && entry[0] != AT_NULL;) {
    if (entry[0] == AT_SECURE) return entry[1] != 0;
  }
  return false;
}

ProcessCondition conditionOfProcess(int _pid) {
  const std::string folder = "/proc/" + std::to_string(_pid);
  return {isSecureProcess(_pid) && movesFolders(folder), mapsRemovedLibrary(folder)};
}

}  // namespace toolsystem
