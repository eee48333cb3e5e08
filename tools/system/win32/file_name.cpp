// SPDX-License-Identifier: MIT
#include "tools/system/file_name.h"

#include <algorithm>
#include <string>

namespace toolsystem {
namespace {

constexpr std::string_view devices[] = {"con", "prn", "aux", "nul", "conin$", "conout$"};
constexpr std::string_view numberedDevices[] = {"com", "lpt"};

char inLowerCase(char _c) { return _c >= 'A' && _c <= 'Z' ? static_cast<char>(_c - 'A' + 'a') : _c; }

bool isDevice(std::string_view _name) {
  std::string name(_name.substr(0, std::min(_name.find('.'), _name.size())));
  name.erase(name.find_last_not_of(' ') + 1);
  std::transform(name.begin(), name.end(), name.begin(), inLowerCase);
  if (std::find(std::begin(devices), std::end(devices), name) != std::end(devices)) return true;
  const bool isNumbered = name.size() == 4 && name[3] >= '1' && name[3] <= '9';
  return isNumbered && std::find(std::begin(numberedDevices), std::end(numberedDevices), name.substr(0, 3)) !=
                           std::end(numberedDevices);
}

}  // namespace

bool isFolderName(std::string_view _name) { return _name.find_first_of("\"<>|?*") == std::string_view::npos; }

bool isFileName(std::string_view _name) { return isFolderName(_name) && !isDevice(_name); }

// Without the manifest for long paths it is less, which nobody can know of another program.
std::size_t longestPath() { return 32766; }

bool isSameFileName(std::string_view _one, std::string_view _other) {
  return std::equal(_one.begin(), _one.end(), _other.begin(), _other.end(),
                    [](char _a, char _b) { return inLowerCase(_a) == inLowerCase(_b); });
}

}  // namespace toolsystem
