// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/process_configurations.h"

#include <algorithm>

#include "quillmark_logging_names.h"
#include "tools/system/account.h"

namespace qmrkctl {
namespace {

// What of the environment decides where files are.
constexpr const char* decisiveVariables[] = {
    "QMRK_APPDATA", "QMRK_COMMON_PROGRAM_FILES",     "QMRK_COMMON_APPDATA", "XDG_DATA_HOME",
    "HOME",         Quillmark_logging::DEFAULT_CA_NR};

std::string variableOf(const Viewpoint& _viewpoint, const char* _name) {
  const auto found = _viewpoint.environment.find(_name);
  return found == _viewpoint.environment.end() ? "" : found->second;
}

bool seesTheSame(const Viewpoint& _one, const Viewpoint& _other) {
  const toolsystem::Account& one = _one.account;
  const toolsystem::Account& other = _other.account;
  return _one.root == _other.root && one.uid == other.uid && one.gid == other.gid && one.groups == other.groups &&
         one.home == other.home && std::ranges::all_of(decisiveVariables, [&](const char* _name) {
           return variableOf(_one, _name) == variableOf(_other, _name);
         });
}

}  // namespace

const SeenConfiguration* ProcessConfigurations::of(const RunningProcess& _process) {
  const auto viewpoint = viewpointOfProcess(static_cast<int>(_process.pid()));
  if (!viewpoint || toolsystem::hasEnded(static_cast<int>(_process.pid()))) return nullptr;
  const bool isGiven = _process.status && _process.status->caSource == status::CaSource::given;
  return &of(*viewpoint, isGiven ? _process.status->caAsked : "");
}

const SeenConfiguration* ProcessConfigurations::ofListener(const RunningProcess& _process) {
  if (!_process.status || _process.status->listener.ca.empty()) return nullptr;
  const auto viewpoint = viewpointOfProcess(static_cast<int>(_process.pid()));
  if (!viewpoint || toolsystem::hasEnded(static_cast<int>(_process.pid()))) return nullptr;
  return &of(*viewpoint, _process.status->listener.ca);
}

const SeenConfiguration& ProcessConfigurations::of(const Viewpoint& _viewpoint, const std::string& _ca) {
  const auto known = std::ranges::find_if(seen_, [&](const SeenConfiguration& _seen) {
    return _seen.ca == _ca && seesTheSame(_seen.viewpoint, _viewpoint);
  });
  if (known != seen_.end()) return *known;
  seen_.push_back({_viewpoint, _ca, readConfiguration(_viewpoint, _ca)});
  return seen_.back();
}

}  // namespace qmrkctl
