// SPDX-License-Identifier: MIT
#include "platform/native_path.h"
#include "tools/qmrkctl/check/checks.h"

namespace qmrkctl {

FindingPlace placeIn(const ConfigurationFile& _file, TextPlace _place) {
  return {platform::nativePath(_file.path), _place.line, _place.column};
}

FindingPlace placeOf(const std::string& _path) { return {platform::nativePath(_path), 0, 0}; }

std::vector<Finding> checkConfiguration(const Viewpoint&, const Configuration& _configuration,
                                        const std::vector<std::string>&) {
  Findings findings;
  checkBytes(_configuration.generic, FileRole::cfg, findings);
  if (_configuration.cfg.path != _configuration.generic.path) checkBytes(_configuration.cfg, FileRole::cfg, findings);
  if (_configuration.init.path != _configuration.cfg.path) checkBytes(_configuration.init, FileRole::init, findings);
  return findings;
}

}  // namespace qmrkctl
