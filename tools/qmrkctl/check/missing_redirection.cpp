// SPDX-License-Identifier: MIT
#include <algorithm>

#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

bool isOfMissingKey(const Finding& _finding) {
  return _finding.code == "Q309" || _finding.code == "Q310" || _finding.code == "Q312";
}

// A REDIRECT_CA_NR that is misspelt, or that the bytes around it spoil, is there all the same.
bool saysMore(const Finding& _finding) {
  if (_finding.code == "Q209" || isOfMissingKey(_finding)) return false;
  const auto mentions = [](const std::string& _text) { return _text.find(names::REDIRECT_CA_NR) != std::string::npos; };
  return _finding.severity == Severity::error || mentions(_finding.text) || mentions(_finding.effect);
}

// Lines that lead to the CAs; empty: none is installed.
std::string fixFor(const Viewpoint& _viewpoint) {
  std::string fix;
  for (const std::string& ca : installedCas(_viewpoint)) {
    if (ca == names::GENERIC_CA) continue;
    fix += (fix.empty() ? "add the line REDIRECT_CA_NR=" : " or REDIRECT_CA_NR=") + ca;
  }
  return fix;
}

}  // namespace

void judgeMissingRedirection(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings) {
  const ConfigurationFile& generic = _configuration.generic;
  const auto missing = std::ranges::find(_findings, "Q209", &Finding::code);
  if (missing == _findings.end()) return;
  const std::string fix = fixFor(_viewpoint);
  if (!fix.empty()) missing->fix = fix;
  const auto isInGeneric = [&generic](const Finding& _finding) { return _finding.file == generic.systemPath; };
  const bool isExplained = std::ranges::any_of(
      _findings, [&](const Finding& _finding) { return isInGeneric(_finding) && saysMore(_finding); });
  const bool hasSettings =
      generic.setting(names::LOG_STATE) != nullptr || generic.setting(names::COMMON_LOG_FILE_NAME) != nullptr;
  if (fix.empty() || isExplained || hasSettings) return;
  missing->text = "the file has no REDIRECT_CA_NR, nor settings of its own";
  missing->effect = "set-ups for \"GE\" fail: LOG_STATE and the other keys are looked up in the generic file itself";
  missing->severity = Severity::error;
  std::erase_if(_findings, [&](const Finding& _finding) { return isInGeneric(_finding) && isOfMissingKey(_finding); });
}

}  // namespace qmrkctl
