// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/uncreated_folder.h"

namespace qmrkctl {
namespace {

constexpr char separators[] = "\\/";

}  // namespace

std::string uncreatedFolder(const std::string& _folder, const std::string& _existing) {
  for (std::size_t colon = _folder.find(':', _existing.size()); colon != std::string::npos;
       colon = _folder.find(':', colon + 1)) {
    const std::size_t below = _folder.find_first_not_of(separators, colon + 1);
    if (below > colon + 1 && below != std::string::npos) return _folder.substr(0, colon + 1);
  }
  return "";
}

}  // namespace qmrkctl
