// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/finding.h"

#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

std::string placeText(const Finding& _finding) {
  if (_finding.file.empty()) return "";
  std::string text = " " + shown(_finding.file);
  if (_finding.line > 0) text += ":" + std::to_string(_finding.line);
  if (_finding.line > 0 && _finding.column > 0) text += ":" + std::to_string(_finding.column);
  return text;
}

}  // namespace

std::string_view severityName(Severity _severity) {
  switch (_severity) {
    case Severity::error:
      return "error";
    case Severity::warning:
      return "warning";
    case Severity::note:
      return "note";
  }
  return "error";
}

std::string findingText(const Finding& _finding) {
  std::string text = std::string(severityName(_finding.severity)) + " " + _finding.code + placeText(_finding) + " " +
                     shown(_finding.text) + "\n";
  if (!_finding.effect.empty()) text += "  effect: " + shown(_finding.effect) + "\n";
  if (!_finding.fix.empty()) text += "  fix: " + shown(_finding.fix) + "\n";
  return text;
}

Json findingJson(const Finding& _finding) {
  Json object = {{"code", _finding.code}, {"severity", severityName(_finding.severity)}};
  if (!_finding.file.empty()) object["file"] = _finding.file;
  if (!_finding.file.empty() && _finding.line > 0) object["line"] = _finding.line;
  if (!_finding.file.empty() && _finding.line > 0 && _finding.column > 0) object["column"] = _finding.column;
  object["text"] = _finding.text;
  object["effect"] = _finding.effect;
  object["fix"] = _finding.fix;
  return object;
}

}  // namespace qmrkctl
