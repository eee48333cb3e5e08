// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/process_environment.h"

#include <string>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/finding_catalogue.h"
#include "tools/system/event_place.h"
#include "tools/system/process_condition.h"

namespace qmrkctl {
namespace {

std::string defaultCaOf(const Viewpoint& _viewpoint) {
  const auto found = _viewpoint.environment.find(Quillmark_logging::DEFAULT_CA_NR);
  return found == _viewpoint.environment.end() || found->second.empty() ? "not set" : "\"" + found->second + "\"";
}

// Only where it matters: that a service has a default CA of its own is usual.
void checkDefaultCa(const RunningProcess& _process, const SeenConfiguration& _own, const SeenConfiguration& _session,
                    std::vector<Finding>& _findings) {
  const bool isByDefault = _process.status && _process.status->caSource != status::CaSource::given;
  const std::string theirs = defaultCaOf(_own.viewpoint);
  const std::string ours = defaultCaOf(_session.viewpoint);
  if (!isByDefault || theirs == ours || _own.configuration.cfg.path == _session.configuration.cfg.path) return;
  const std::string pid = std::to_string(_process.pid());
  _findings.push_back(findingOf(
      "Q705", {}, processText(_process) + ": DEFAULT_CA_NR is " + theirs + " there, and " + ours + " in this session",
      "ask with --pid " + pid + ", as in \"qmrkctl --pid " + pid + " check\""));
}

void checkFolderOfEvents(const RunningProcess& _process, std::vector<Finding>& _findings) {
  const std::string folder = _process.status ? "" : toolsystem::distrustedFolder(_process.facts);
  if (folder.empty()) return;
  std::erase_if(_findings, [](const Finding& _finding) { return _finding.code == "Q610"; });
  _findings.push_back(findingOf("Q620", {}, processText(_process) + " does not use " + folder,
                                "remove " + folder.substr(0, folder.find(',')) + ", then restart the application"));
}

}  // namespace

void checkProcessEnvironment(const RunningProcess& _process, const SeenConfiguration* _own,
                             const SeenConfiguration& _session, std::vector<Finding>& _findings) {
  const toolsystem::ProcessCondition condition = toolsystem::conditionOfProcess(static_cast<int>(_process.pid()));
  if (condition.hasFormerLibrary) {
    _findings.push_back(
        findingOf("Q617", {}, processText(_process) + ": its library was replaced after it had loaded it"));
  }
  if (condition.ignoresEnvironment) {
    _findings.push_back(
        findingOf("Q706", {}, processText(_process) + " was started with more rights than its caller has"));
  }
  checkFolderOfEvents(_process, _findings);
  if (_own != nullptr) checkDefaultCa(_process, *_own, _session, _findings);
}

}  // namespace qmrkctl
