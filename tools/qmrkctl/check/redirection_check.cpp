// SPDX-License-Identifier: MIT
#include <algorithm>

#include "config/cfg_data_manager.h"
#include "platform/native_path.h"
#include "platform/text_file.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/check/misplaced_file.h"
#include "tools/qmrkctl/check/similar_name.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;
using toolsystem::PathKind;

std::string native(const std::string& _path) { return platform::nativePath(_path); }

std::string nameOf(const std::string& _path) { return _path.substr(_path.rfind('\\') + 1); }

// The file in the same folder whose name differs in letter case alone; empty when there is none.
std::string otherLetterCase(const Viewpoint& _viewpoint, const std::string& _path) {
  const std::vector<std::string> files = fileNamesIn(_viewpoint, _path.substr(0, _path.rfind('\\')));
  const auto found = std::find_if(files.begin(), files.end(), [name = nameOf(_path)](const std::string& _file) {
    return _file != name && isSameIgnoringCase(_file, name);
  });
  return found == files.end() ? "" : *found;
}

const char* kindName(PathKind _kind) {
  switch (_kind) {
    case PathKind::folder:
      return "a folder";
    case PathKind::pipe:
      return "a pipe";
    case PathKind::socket:
      return "a socket";
    case PathKind::danglingLink:
      return "a link that leads nowhere";
    default:
      return "a device";
  }
}

// A file that is nowhere near by its name.
void addAbsent(const Viewpoint& _viewpoint, const Configuration& _configuration, const std::string& _missing,
               const Finding& _plain, Findings& _findings) {
  _findings.push_back(_plain);
  const std::string misplaced = misplacedFile(_viewpoint, _configuration, _missing);
  if (misplaced.empty()) return;
  _findings.back().text += ", but there is " + native(misplaced);
  _findings.back().fix = "if it is meant, move it to " + native(_missing);
}

// A file that the library cannot find. _code is that of the plain case.
void addMissing(const Viewpoint& _viewpoint, const Configuration& _configuration, const ConfigurationFile& _file,
                std::string_view _code, const std::string& _effect, Findings& _findings) {
  const FindingPlace place = placeOf(_file);
  const std::string other = otherLetterCase(_viewpoint, _file.path);
  if (_file.facts.kind == PathKind::danglingLink) {
    _findings.push_back(findingOf("Q213", place, "in place of the file stands a link that leads nowhere", "", _effect));
  } else if (_file.facts.kind == PathKind::file || _file.facts.isHidden) {
    _findings.push_back(findingOf(_code == "Q210" ? "Q212" : "Q211", place,
                                  "the user " + _viewpoint.account.name + " may not enter its folder",
                                  "let the user read and enter the folder (mode 0755)", _effect));
  } else if (!other.empty()) {
    _findings.push_back(findingOf("Q208", place, "the file is missing, but there is " + other,
                                  "rename " + other + " to " + nameOf(_file.path), _effect));
  } else {
    addAbsent(_viewpoint, _configuration, _file.path, findingOf(_code, place, "the file is missing", "", _effect),
              _findings);
  }
}

void checkAsked(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings) {
  if (!_configuration.isFallenBack || _configuration.asked.path == _configuration.cfg.path) return;
  const bool isGeneric = CfgDataManager::getInstance(false)->toUpperCopy(_configuration.caAsked) == names::GENERIC_CA;
  if (isGeneric) return;
  std::string effect = "the set-up writes a record to qmrk.info and falls back to \"GE\"";
  if (_configuration.cfg.exists()) effect += ", so " + native(_configuration.cfg.path) + " is read instead";
  addMissing(_viewpoint, _configuration, _configuration.asked, "Q201", effect, _findings);
}

// The file to which the generic one leads cannot be found.
void checkMissingTarget(const Viewpoint& _viewpoint, const Configuration& _configuration, const Setting& _redirection,
                        const ConfigurationFile& _target, const FindingPlace& _place, Findings& _findings) {
  const std::string other = otherLetterCase(_viewpoint, _target.path);
  const std::string text = "REDIRECT_CA_NR=" + _redirection.value + " leads to " + nameOf(_target.path);
  const bool isInUpperCase = CfgDataManager::getInstance(false)->toUpperCopy(_redirection.value) == _redirection.value;
  if (_target.facts.kind != PathKind::missing) {
    addMissing(_viewpoint, _configuration, _target, "Q204", "the file is not found: the set-up fails", _findings);
  } else if (!other.empty() && isInUpperCase) {
    addMissing(_viewpoint, _configuration, _target, "Q204", "", _findings);
  } else if (!other.empty()) {
    const std::string ca = other.substr(nameOf(_target.path).find(_redirection.value), _redirection.value.size());
    _findings.push_back(findingOf("Q207", _place, text + ", but the file is " + other, "write REDIRECT_CA_NR=" + ca));
  } else {
    addAbsent(_viewpoint, _configuration, _target.path, findingOf("Q204", _place, text + ", which is missing"),
              _findings);
  }
}

void checkTarget(const Viewpoint& _viewpoint, const Configuration& _configuration, const Setting& _redirection,
                 Findings& _findings) {
  const ConfigurationFile& generic = _configuration.generic;
  const FindingPlace place = placeIn(generic, _redirection.valuePlace);
  if (_redirection.value == names::GENERIC_CA) {
    _findings.push_back(findingOf("Q206", place, "REDIRECT_CA_NR leads to GE itself"));
    return;
  }
  const std::string path = redirectedCfgPath(_configuration, _redirection.value);
  const ConfigurationFile target = readConfigurationFile(_viewpoint, path, "");
  if (!target.exists()) {
    checkMissingTarget(_viewpoint, _configuration, _redirection, target, place, _findings);
  } else if (const Setting* const second = target.setting(names::REDIRECT_CA_NR)) {
    _findings.push_back(
        findingOf("Q205", placeIn(target, second->keyPlace),
                  "the file to which GE is redirected has REDIRECT_CA_NR=" + second->value + " itself"));
  }
}

void checkGeneric(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings) {
  const ConfigurationFile& generic = _configuration.generic;
  if (!generic.exists()) {
    const bool isNeeded = _configuration.caInEffect == names::GENERIC_CA;
    const bool fails = isNeeded && !_configuration.wouldBeGenerated;
    const std::string effect = fails      ? ""
                               : isNeeded ? findingEffect("Q202")
                                          : "\"GE\" has no files: TS_APPENDERS and QMRK_TRACE are off";
    addMissing(_viewpoint, _configuration, generic, fails ? "Q203" : "Q202", effect, _findings);
    if (fails) _findings.back().text += "; " + _configuration.failure;
    return;
  }
  if (generic.path != _configuration.cfg.path) checkUsable(_viewpoint, generic, FileRole::cfg, _findings);
  if (!generic.isUsable()) return;
  if (const Setting* const redirection = generic.setting(names::REDIRECT_CA_NR)) {
    checkTarget(_viewpoint, _configuration, *redirection, _findings);
  } else {
    _findings.push_back(findingOf("Q209", placeOf(generic), "the file has no REDIRECT_CA_NR"));
  }
}

}  // namespace

void checkUsable(const Viewpoint& _viewpoint, const ConfigurationFile& _file, FileRole _role, Findings& _findings) {
  const FindingPlace place = placeOf(_file);
  const bool isCfg = _role == FileRole::cfg;
  const std::string effect = isCfg ? "no key can be read: the set-up fails" : findingEffect("Q212");
  if (_file.facts.kind != PathKind::file) {
    _findings.push_back(
        findingOf("Q213", place, std::string("in place of the file stands ") + kindName(_file.facts.kind), "", effect));
  } else if (_file.facts.size > platform::largestTextFile) {
    const std::string bytes = std::to_string(_file.facts.size);
    _findings.push_back(findingOf("Q214", place, "the file has " + bytes + " bytes", "", effect));
  } else if (!_file.rights.isReadable) {
    _findings.push_back(
        findingOf(isCfg ? "Q211" : "Q212", place, "the user " + _viewpoint.account.name + " may not read the file"));
  }
}

void checkRedirection(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings) {
  if (_configuration.generic.path.empty()) return;
  checkAsked(_viewpoint, _configuration, _findings);
  checkGeneric(_viewpoint, _configuration, _findings);
  if (_configuration.cfg.exists()) checkUsable(_viewpoint, _configuration.cfg, FileRole::cfg, _findings);
  if (_configuration.init.path.empty() || _configuration.init.path == _configuration.cfg.path) return;
  if (!_configuration.init.exists()) {
    addMissing(_viewpoint, _configuration, _configuration.init, "Q210", findingEffect("Q210"), _findings);
  } else {
    checkUsable(_viewpoint, _configuration.init, FileRole::init, _findings);
  }
}

}  // namespace qmrkctl
