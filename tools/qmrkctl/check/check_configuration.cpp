// SPDX-License-Identifier: MIT
#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/check/known_classes.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

CfgUse useOfGeneric(const ConfigurationFile& _generic) {
  const Setting* const redirection = _generic.setting(names::REDIRECT_CA_NR);
  const bool leadsAway = redirection != nullptr && redirection->value != names::GENERIC_CA;
  return leadsAway ? CfgUse::genericWithRedirection : CfgUse::generic;
}

// By its name; under another one, such as that of a draft, it may become either.
CfgUse useOfNamed(const ConfigurationFile& _file) {
  const std::string name = _file.systemPath.substr(_file.systemPath.find_last_of("\\/") + 1);
  const bool isOfCa = name.starts_with("qmrk_logging_") && name != names::GENERIC_CFG_FILE_NAME;
  return isOfCa ? CfgUse::single : useOfGeneric(_file);
}

// Each check stops where a text has too many faults.
void addLimit(const ConfigurationFile& _file, std::size_t _before, Findings& _findings) {
  if (_findings.size() - _before < mostFindings) return;
  _findings.push_back(findingOf("Q106", placeOf(_file), "after 100 findings, the rest of the file was not examined"));
}

// The text of a .cfg file. What makes all of it unreadable is said once.
void checkCfgText(const ConfigurationFile& _file, CfgUse _use, Findings& _findings) {
  const std::size_t before = _findings.size();
  checkBytes(_file, FileRole::cfg, _findings);
  if (_findings.size() > before && _findings.back().code == "Q102") return;
  checkKeys(_file, _use, _findings);
  if (_use != CfgUse::genericWithRedirection) {
    checkValues(_file, _findings);
    checkFilter(_file, _findings);
  }
  addLimit(_file, before, _findings);
}

void checkInitText(const ConfigurationFile& _file, const ConfigurationFile* _cfg, const KnownClasses& _known,
                   Findings& _findings) {
  const std::size_t before = _findings.size();
  checkBytes(_file, FileRole::init, _findings);
  if (_findings.size() > before && _findings.back().code == "Q102") return;
  checkClassList(_file, _cfg, _known, _findings);
  addLimit(_file, before, _findings);
}

}  // namespace

FindingPlace placeIn(const ConfigurationFile& _file, TextPlace _place) {
  return {_file.systemPath, _place.line, _place.column};
}

FindingPlace placeOf(const ConfigurationFile& _file) { return {_file.systemPath, 0, 0}; }

std::string inQuotes(std::string_view _text) {
  // More of it is no name.
  constexpr std::size_t longest = 1000;
  return "\"" + std::string(_text.substr(0, longest)) + (_text.size() > longest ? "..." : "") + "\"";
}

FindingPlace placeOf(const std::string& _path) { return {platform::nativePath(_path), 0, 0}; }

std::vector<Finding> checkConfiguration(const Viewpoint& _viewpoint, const Configuration& _configuration,
                                        const std::vector<std::string>& _knownLogs) {
  Findings findings;
  const ConfigurationFile& generic = _configuration.generic;
  const ConfigurationFile& cfg = _configuration.cfg;
  checkEnvironment(_viewpoint, _configuration, findings);
  checkRedirection(_viewpoint, _configuration, findings);
  if (generic.path != cfg.path) checkCfgText(generic, useOfGeneric(generic), findings);
  checkCfgText(cfg, generic.path == cfg.path ? CfgUse::generic : CfgUse::single, findings);
  judgeMissingRedirection(_viewpoint, _configuration, findings);
  if (_configuration.init.path != cfg.path) {
    const KnownClasses known(_knownLogs, loggedClasses(_viewpoint, _configuration));
    checkInitText(_configuration.init, &cfg, known, findings);
  }
  checkFolders(_viewpoint, _configuration, findings);
  checkBackups(_viewpoint, _configuration, findings);
  return findings;
}

std::vector<Finding> checkFile(const Viewpoint& _viewpoint, const ConfigurationFile& _file, FileRole _role) {
  Findings findings;
  checkUsable(_viewpoint, _file, _role, findings);
  if (_role == FileRole::init) {
    checkInitText(_file, nullptr, {{}, {}}, findings);
  } else {
    checkCfgText(_file, useOfNamed(_file), findings);
  }
  return findings;
}

}  // namespace qmrkctl
