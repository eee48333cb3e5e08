// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/why_faults.h"

#include <algorithm>
#include <string>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/doctor/process_check.h"

namespace qmrkctl {
namespace {

using Codes = std::initializer_list<std::string_view>;

bool isAmong(const Finding& _finding, Codes _codes) { return std::ranges::find(_codes, _finding.code) != _codes.end(); }

// Of bytes that spoil the whole file.
bool isOfBytes(const Finding& _finding) { return isAmong(_finding, {"Q102", "Q103", "Q104"}); }

bool isOfKey(const Finding& _finding) {
  return isAmong(_finding, {"Q105", "Q301", "Q302", "Q303", "Q304", "Q305", "Q306", "Q322", "Q325"});
}

bool isIn(const Finding& _finding, const ConfigurationFile& _file) {
  return !_file.path.empty() && _finding.file == platform::nativePath(_file.path);
}

// The first fault that a predicate accepts.
template <class Accepts>
const Finding* firstFault(const WhyQuestion& _question, Accepts _accepts) {
  const auto found = std::ranges::find_if(_question.faults, _accepts);
  return found == _question.faults.end() ? nullptr : &*found;
}

bool contains(std::string_view _text, std::string_view _part) { return _text.find(_part) != std::string_view::npos; }

bool mentions(const Finding& _finding, std::string_view _name) {
  return contains(_finding.text, _name) || contains(_finding.effect, _name) || contains(_finding.fix, _name);
}

// Whether the first of two paths, in the system's form, is a folder above the other one.
bool isAbove(std::string_view _folder, std::string_view _path) {
  return _path.starts_with(_folder) && _path.substr(_folder.size()).find_first_of("\\/") == 0;
}

std::string_view lineOf(std::string_view _text, int _line) {
  for (int line = 1; line < _line && !_text.empty(); ++line)
    _text.remove_prefix(std::min(_text.size(), std::min(_text.find('\n'), _text.size()) + 1));
  return _text.substr(0, _text.find('\n'));
}

// Whether a text has the name of the class, or that of one above it which selects it too.
bool hasClass(std::string_view _text, std::string_view _class) {
  while (!_class.empty()) {
    if (contains(_text, _class)) return true;
    const std::size_t dot = _class.rfind('.');
    // The first part alone stands in too many names.
    if (dot == std::string_view::npos || !contains(_class.substr(0, dot), ".")) return false;
    _class = _class.substr(0, dot);
  }
  return false;
}

}  // namespace

const ProcessStatus* statusOf(const WhyQuestion& _question) {
  return _question.process != nullptr && _question.process->status ? &*_question.process->status : nullptr;
}

bool hasLostCfg(const WhyQuestion& _question) {
  const ProcessStatus* const status = statusOf(_question);
  return status != nullptr && hasLostCfg(*status, _question.seen->configuration);
}

const Finding* findingAmong(const WhyQuestion& _question, std::initializer_list<std::string_view> _codes) {
  const auto found = std::ranges::find_if(_question.findings, [_codes](const Finding& _finding) {
    return std::ranges::find(_codes, _finding.code) != _codes.end();
  });
  return found == _question.findings.end() ? nullptr : &*found;
}

const Finding* faultOfCfg(const WhyQuestion& _question) {
  const Configuration& configuration = _question.seen->configuration;
  const auto isOfFiles = [](const Finding& _finding) {
    return isAmong(_finding, {"Q203", "Q204", "Q207", "Q208", "Q201", "Q211", "Q213", "Q214"});
  };
  // That of the file that is read in the end counts most.
  if (const Finding* const own = firstFault(
          _question, [&](const Finding& _finding) { return isOfFiles(_finding) && isIn(_finding, configuration.cfg); }))
    return own;
  return firstFault(
      _question, [&](const Finding& _finding) { return isOfFiles(_finding) && !isIn(_finding, configuration.init); });
}

const Finding* faultOfKey(const WhyQuestion& _question, std::string_view _key) {
  const ConfigurationFile& cfg = _question.seen->configuration.cfg;
  const bool isMissing = cfg.setting(_key) == nullptr;
  return firstFault(_question, [&](const Finding& _finding) {
    if (!isIn(_finding, cfg)) return false;
    if (_finding.code == "Q101") return isMissing && contains(lineOf(cfg.text, 1), _key);
    if (isMissing && (_finding.code == "Q308" || isOfBytes(_finding))) return true;
    if (isMissing && _finding.code == "Q209") return _finding.severity == Severity::error;
    // Where the redirection is misspelt, the generic file has none of the other keys.
    const bool isOfRedirection =
        cfg.path == _question.seen->configuration.generic.path && mentions(_finding, Quillmark_logging::REDIRECT_CA_NR);
    return isOfKey(_finding) && (mentions(_finding, _key) || (isMissing && isOfRedirection));
  });
}

const Finding* faultOfFolder(const WhyQuestion& _question) {
  const std::string log = platform::nativePath(_question.seen->configuration.logs->commonLog);
  return firstFault(_question, [&](const Finding& _finding) {
    return _finding.code == "Q501" || (_finding.code == "Q505" && isAbove(_finding.file, log));
  });
}

const Finding* faultOfLog(const WhyQuestion& _question) {
  // Logs of applications have some of these codes too.
  const std::string log = platform::nativePath(_question.seen->configuration.logs->commonLog);
  return firstFault(_question, [&](const Finding& _finding) {
    const bool isTooLong = _finding.code == "Q502" && isIn(_finding, _question.seen->configuration.cfg);
    return isTooLong || _finding.code == "Q313" ||
           (_finding.file == log && isAmong(_finding, {"Q502", "Q504", "Q505"}));
  });
}

const Finding* faultOfSpace(const WhyQuestion& _question) {
  return firstFault(_question, [](const Finding& _finding) { return _finding.code == "Q506"; });
}

const Finding* faultOfFilter(const WhyQuestion& _question) {
  return firstFault(_question, [&](const Finding& _finding) {
    return isIn(_finding, _question.seen->configuration.cfg) && isAmong(_finding, {"Q401", "Q402", "Q410"}) &&
           hasClass(_finding.text, _question.logClass);
  });
}

const Finding* faultOfListFile(const WhyQuestion& _question) {
  return firstFault(_question, [&](const Finding& _finding) {
    return isIn(_finding, _question.seen->configuration.init) &&
           isAmong(_finding, {"Q208", "Q210", "Q211", "Q212", "Q213", "Q214"});
  });
}

const Finding* faultOfList(const WhyQuestion& _question) {
  const ConfigurationFile& init = _question.seen->configuration.init;
  if (init.path == _question.seen->configuration.cfg.path)
    return firstFault(_question, [](const Finding& _finding) { return _finding.code == "Q209"; });
  return firstFault(_question, [&](const Finding& _finding) {
    if (!isIn(_finding, init)) return false;
    if (_finding.code == "Q102") return true;
    if (!isAmong(_finding, {"Q101", "Q103", "Q104", "Q402", "Q403", "Q404", "Q405", "Q409", "Q410"})) return false;
    // A comment joins the entry behind it, which stands in the next line.
    const bool isCommented =
        _finding.code == "Q403" && hasClass(lineOf(init.text, _finding.line + 1), _question.logClass);
    return isCommented || hasClass(_finding.text, _question.logClass) ||
           hasClass(lineOf(init.text, _finding.line), _question.logClass) ||
           hasClass(_finding.effect, _question.logClass);
  });
}

}  // namespace qmrkctl
