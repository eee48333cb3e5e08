// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/process_environment.h"

#include <string>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/doctor/process_check.h"
#include "tools/qmrkctl/finding_catalogue.h"
#include "tools/status/valid_utf8.h"
#include "tools/system/event_place.h"
#include "tools/system/process_condition.h"

namespace qmrkctl {
namespace {

std::string defaultCaOf(const Viewpoint& _viewpoint) {
  const auto found = _viewpoint.environment.find(Quillmark_logging::DEFAULT_CA_NR);
  return found == _viewpoint.environment.end() || found->second.empty() ? "not set" : "\"" + found->second + "\"";
}

// Whether it writes the very log of the session, wherever its environment leads now.
bool logsAs(const RunningProcess& _process, const SeenConfiguration& _session) {
  if (!_process.status || !_session.configuration.logs) return false;
  const std::string& log = _process.status->commonLogPath.text;
  return !log.empty() && log == validUtf8(_session.configuration.logs->commonLog);
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

// Only of the caller's own applications: that each user has folders of their own is usual.
void checkBaseFolders(const RunningProcess& _process, const SeenConfiguration& _own, const SeenConfiguration& _session,
                      std::vector<Finding>& _findings) {
  const int pid = static_cast<int>(_process.pid());
  const Viewpoint& theirs = _own.viewpoint;
  if (theirs.account.uid != _session.viewpoint.account.uid || !theirs.root.empty() ||
      !toolsystem::environmentOfProcess(pid))
    return;
  const auto differs = [&](std::string Configuration::*_folder, const char* _what) {
    const std::string& there = _own.configuration.*_folder;
    const std::string& here = _session.configuration.*_folder;
    if (there == here || there.empty() || here.empty()) return false;
    _findings.push_back(findingOf("Q707", {},
                                  processText(_process) + " " + _what + " below " + platform::nativePath(there) +
                                      ", this session looks below " + platform::nativePath(here),
                                  "ask with --pid, as in \"qmrkctl --pid " + std::to_string(pid) + " tail\""));
    return true;
  };
  if ((!logsAs(_process, _session) && differs(&Configuration::userBase, "logs")) ||
      differs(&Configuration::cfgBase, "reads its .cfg file"))
    return;
  differs(&Configuration::initBase, "reads its class list");
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
  if (_own == nullptr) return;
  checkDefaultCa(_process, *_own, _session, _findings);
  if (!condition.ignoresEnvironment) checkBaseFolders(_process, *_own, _session, _findings);
}

}  // namespace qmrkctl
