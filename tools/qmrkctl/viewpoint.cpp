// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/viewpoint.h"

#include <algorithm>
#include <utility>

#include "platform/native_path.h"
#include "tools/system/path_in_root.h"

namespace qmrkctl {
namespace {

// Of these a service engineer knows that they hold for the machine; the others are the matter of each session.
constexpr const char* machineVariables[] = {"QMRK_COMMON_PROGRAM_FILES", "QMRK_COMMON_APPDATA"};

Viewpoint withoutSession(toolsystem::Account _account) {
  Viewpoint viewpoint{std::move(_account), {}, ""};
  const toolsystem::Environment own = toolsystem::ownEnvironment();
  for (const char* const name : machineVariables) {
    const auto variable = own.find(name);
    if (variable != own.end()) viewpoint.environment.insert(*variable);
  }
  if (!viewpoint.account.home.empty()) viewpoint.environment["HOME"] = viewpoint.account.home;
  return viewpoint;
}

}  // namespace

Viewpoint ownViewpoint() { return {toolsystem::ownAccount(), toolsystem::ownEnvironment(), ""}; }

std::optional<Viewpoint> viewpointOfUser(const std::string& _user) {
  std::optional<toolsystem::Account> account = toolsystem::accountOfUser(_user);
  if (!account) return std::nullopt;
  return withoutSession(std::move(*account));
}

std::optional<Viewpoint> viewpointOfProcess(int _pid) {
  std::optional<toolsystem::Account> account = toolsystem::accountOfProcess(_pid);
  if (!account) return std::nullopt;
  Viewpoint viewpoint = withoutSession(std::move(*account));
  if (std::optional<toolsystem::Environment> environment = toolsystem::environmentOfProcess(_pid)) {
    viewpoint.environment = std::move(*environment);
  }
  viewpoint.root = toolsystem::fileSystemOfProcess(_pid);
  return viewpoint;
}

bool baseFolder(const Viewpoint& _viewpoint, platform::ShellFolder _folder, std::string& _path) {
  return toolsystem::baseFolder(_folder, _viewpoint.environment, _viewpoint.account.home, _path);
}

std::string reachedPath(const Viewpoint& _viewpoint, const std::string& _path) {
  return toolsystem::pathInRoot(_viewpoint.root, platform::nativePath(_path));
}

toolsystem::PathFacts factsOf(const Viewpoint& _viewpoint, const std::string& _path) {
  toolsystem::PathFacts facts = toolsystem::factsOf(reachedPath(_viewpoint, _path));
  if (_viewpoint.root.empty()) return facts;
  // The path that is reached is no link any more.
  facts.isLink = toolsystem::factsOf(_viewpoint.root + platform::nativePath(_path)).isLink;
  if (facts.isLink && facts.kind == toolsystem::PathKind::missing) facts.kind = toolsystem::PathKind::danglingLink;
  return facts;
}

std::string parentOf(const std::string& _path) {
  const std::size_t end = _path.find_last_of("\\/");
  return end == std::string::npos ? "" : _path.substr(0, end);
}

std::string existingPart(const Viewpoint& _viewpoint, std::string _path) {
  while (factsOf(_viewpoint, _path).kind == toolsystem::PathKind::missing) {
    const std::string parent = parentOf(_path);
    if (parent.empty()) return _path.starts_with('/') ? "/" : _path;
    _path = parent;
  }
  return _path;
}

std::vector<toolsystem::PathRights> rightsOn(const Viewpoint& _viewpoint, const std::vector<std::string>& _paths) {
  std::vector<std::string> paths;
  std::transform(_paths.begin(), _paths.end(), std::back_inserter(paths), platform::nativePath);
  return toolsystem::rightsOn(paths, _viewpoint.account, _viewpoint.root);
}

toolsystem::PathRights rightsOn(const Viewpoint& _viewpoint, const std::string& _path) {
  return rightsOn(_viewpoint, std::vector<std::string>{_path}).front();
}

bool mayRead(const Viewpoint& _viewpoint, const std::string& _path) { return rightsOn(_viewpoint, _path).isReadable; }

bool mayWrite(const Viewpoint& _viewpoint, const std::string& _path) { return rightsOn(_viewpoint, _path).isWritable; }

}  // namespace qmrkctl
