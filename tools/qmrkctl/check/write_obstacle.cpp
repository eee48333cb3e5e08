// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/write_obstacle.h"

#include <algorithm>
#include <vector>

#include "platform/native_path.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/system/write_protection.h"

namespace qmrkctl {
namespace {

using toolsystem::PathFacts;
using toolsystem::WriteProtection;

std::string quotedPath(const std::string& _path) { return inQuotes(platform::nativePath(_path)); }

// The folder above a path that the user may not enter; empty: there is none.
std::string closedFolderAbove(const Viewpoint& _viewpoint, const std::string& _path) {
  std::vector<std::string> paths;
  for (std::string path = _path; !path.empty(); path = parentOf(path))
    paths.push_back(path);
  std::reverse(paths.begin(), paths.end());
  const std::vector<toolsystem::PathRights> rights = rightsOn(_viewpoint, paths);
  for (std::size_t i = 0; i + 1 < paths.size(); ++i) {
    if (rights[i].exists && !rights[i + 1].exists) return paths[i];
  }
  return "";
}

}  // namespace

WriteObstacle writeObstacle(const Viewpoint& _viewpoint, const std::string& _path) {
  const std::uint32_t user = _viewpoint.account.uid;
  switch (toolsystem::writeProtectionOf(reachedPath(_viewpoint, _path))) {
    case WriteProtection::fileSystem:
      return {": its file system is mounted read-only",
              "mount it for writing (mount -o remount,rw), or move the logs to another one"};
    case WriteProtection::attribute:
      return {": an attribute protects it from everybody",
              std::string(toolsystem::attributeRemoval()) + " " + quotedPath(_path)};
    case WriteProtection::none:
      break;
  }
  const std::string closed = closedFolderAbove(_viewpoint, _path);
  if (!closed.empty()) {
    return {", nor enter " + platform::nativePath(closed), factsOf(_viewpoint, closed).owner == user
                                                               ? "chmod u+x " + quotedPath(closed)
                                                               : "let the user enter " + quotedPath(closed)};
  }
  const PathFacts facts = factsOf(_viewpoint, _path);
  if (facts.ownerMayWrite) return {};
  const std::string permission =
      (facts.kind == toolsystem::PathKind::folder ? "chmod u+wx " : "chmod u+w ") + quotedPath(_path);
  return {"", facts.owner == user ? permission : "give it to the user who logs (chown), then " + permission};
}

}  // namespace qmrkctl
