// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/misplaced_file.h"

#include <algorithm>

#include "tools/qmrkctl/check/similar_name.h"

namespace qmrkctl {
namespace {

template <class IsMeant>
std::string fileIn(const Viewpoint& _viewpoint, const std::string& _folder, IsMeant _isMeant) {
  if (_folder.empty()) return "";
  const std::vector<std::string> files = fileNamesIn(_viewpoint, _folder);
  const auto found = std::ranges::find_if(files, _isMeant);
  return found == files.end() ? "" : _folder + "\\" + *found;
}

}  // namespace

std::string misplacedFile(const Viewpoint& _viewpoint, const Configuration& _configuration, const std::string& _path) {
  const std::string name = _path.substr(_path.rfind('\\') + 1);
  const std::string stem = name.substr(0, name.rfind('.'));
  const std::string& cfgFolder = _configuration.cfgFolder;
  const bool isInCfgFolder = parentOf(_path) == cfgFolder;
  std::string other = fileIn(_viewpoint, isInCfgFolder ? _configuration.initFolder : cfgFolder,
                             [&](const std::string& _file) { return isSameIgnoringCase(_file, name); });
  if (!other.empty()) return other;
  // The file of the other kind has its own ending.
  const std::string otherKind = stem + (name.ends_with(".cfg") ? ".init" : ".cfg");
  return fileIn(_viewpoint, parentOf(_path), [&](const std::string& _file) {
    const bool hasStem = isSameIgnoringCase(_file.substr(0, stem.size()), stem);
    const bool endsThere = _file.size() == stem.size() || (_file.size() > stem.size() && _file[stem.size()] == '.');
    return hasStem && endsThere && !isSameIgnoringCase(_file.substr(0, otherKind.size()), otherKind);
  });
}

}  // namespace qmrkctl
