// SPDX-License-Identifier: MIT
#include "tools/system/path_rights.h"

#include <algorithm>
#include <iterator>

#include "platform/access.h"

namespace toolsystem {

std::vector<PathRights> rightsOn(const std::vector<std::string>& _paths, const Account&, const std::string&) {
  std::vector<PathRights> rights;
  std::transform(_paths.begin(), _paths.end(), std::back_inserter(rights), [](const std::string& _path) {
    using platform::Access;
    return PathRights{platform::isAccessible(_path, Access::exists), platform::isAccessible(_path, Access::read),
                      platform::isAccessible(_path, Access::write)};
  });
  return rights;
}

}  // namespace toolsystem
