// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cctype>

#include "config/cfg_data_manager.h"

std::string CfgDataManager::toUpperCopy(const std::string& _s) {
  std::string copy = _s;
  toUpper(copy);
  return copy;
}

void CfgDataManager::toUpper(std::string& _s) {
  std::transform(_s.begin(), _s.end(), _s.begin(),
                 [](unsigned char _c) { return static_cast<char>(std::toupper(_c)); });
}
