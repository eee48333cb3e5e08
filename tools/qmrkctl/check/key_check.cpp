// SPDX-License-Identifier: MIT
#include <algorithm>

#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/check/similar_name.h"
#include "tools/qmrkctl/known_keys.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

constexpr char blanks[] = " \t";

std::vector<std::string_view> namesOfKeys() {
  std::vector<std::string_view> found;
  found.reserve(std::size(knownKeys));
  for (const KnownKey& known : knownKeys)
    found.push_back(known.key);
  return found;
}

bool isKnown(std::string_view _key) {
  return std::any_of(knownKeys.begin(), knownKeys.end(), [_key](const KnownKey& _known) { return _known.key == _key; });
}

std::string_view trimmed(std::string_view _text) {
  const std::size_t begin = _text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return _text.substr(begin, _text.find_last_not_of(blanks) + 1 - begin);
}

std::string_view part(const ConfigurationFile& _file, std::size_t _begin, std::size_t _end) {
  return std::string_view(_file.text).substr(_begin, _end - _begin);
}

// The line feeds between two positions.
bool hasLineEnd(const ConfigurationFile& _file, std::size_t _begin, std::size_t _end) {
  return part(_file, _begin, _end).find('\n') != std::string_view::npos;
}

std::string firstLine(std::string_view _text) { return std::string(_text.substr(0, _text.find('\n'))); }

void addLineWithoutSeparator(const ConfigurationFile& _file, const Setting& _setting, Findings& _findings) {
  const std::string line = firstLine(part(_file, _setting.keyBegin, _file.text.size()));
  const std::size_t last = _file.text.rfind('\n', std::min(_setting.valueBegin, _file.text.size()) - 1);
  const std::string key(trimmed(part(_file, last + 1, _setting.valueBegin - 1)));
  const std::string effect = key.empty() ? "the line is the key of the next one"
                                         : "the line becomes part of the next key, so " + key + " below it is not read";
  _findings.push_back(
      findingOf("Q305", placeIn(_file, _setting.keyPlace), "the line " + inQuotes(line) + " has no \"=\"", "", effect));
}

void addUnknownKey(const ConfigurationFile& _file, const Setting& _setting, Findings& _findings) {
  const FindingPlace place = placeIn(_file, _setting.keyPlace);
  const std::string_view key = trimmed(_setting.key);
  if (key != _setting.key && isKnown(key)) {
    _findings.push_back(findingOf("Q302", place, "a blank stands beside the key " + std::string(key),
                                  "write " + std::string(key) + "=" + std::string(trimmed(_setting.value)),
                                  "the key is " + inQuotes(_setting.key) + ", which nothing reads"));
    return;
  }
  const std::string similar = similarName(key, namesOfKeys());
  const std::string text = "nothing reads the key " + inQuotes(_setting.key);
  if (similar.empty()) {
    Finding finding = findingOf("Q301", place, text, "delete the line, or correct the key");
    finding.severity = Severity::warning;
    _findings.push_back(finding);
  } else {
    _findings.push_back(findingOf("Q301", place, text + "; did you mean " + similar + "?", "write " + similar,
                                  similar + " is not set by this line"));
  }
}

bool isAmong(const Findings& _findings, std::string_view _code) {
  return std::any_of(_findings.begin(), _findings.end(),
                     [_code](const Finding& _finding) { return _finding.code == _code; });
}

void checkPair(const ConfigurationFile& _file, CfgUse _use, const Setting& _setting, Findings& _findings) {
  if (hasLineEnd(_file, _setting.keyBegin, _setting.valueBegin)) {
    addLineWithoutSeparator(_file, _setting, _findings);
  } else if (!isKnown(_setting.key)) {
    addUnknownKey(_file, _setting, _findings);
  } else if (_use == CfgUse::genericWithRedirection && _setting.key != names::REDIRECT_CA_NR &&
             _setting.key != names::CA_NR) {
    _findings.push_back(findingOf("Q325", placeIn(_file, _setting.keyPlace), _setting.key + " is not read here"));
  } else if (_use == CfgUse::single && _setting.key == names::REDIRECT_CA_NR && !isAmong(_findings, "Q205")) {
    _findings.push_back(
        findingOf("Q331", placeIn(_file, _setting.keyPlace), "REDIRECT_CA_NR=" + _setting.value + " is not read here"));
  }
  if (hasLineEnd(_file, _setting.valueBegin, _setting.end)) {
    const std::string swallowed = firstLine(part(_file, _file.text.find('\n', _setting.valueBegin) + 1, _setting.end));
    _findings.push_back(findingOf("Q304", placeIn(_file, _setting.keyPlace), _setting.key + " has an empty value", "",
                                  "the next line, " + inQuotes(swallowed) + ", becomes part of the value"));
  }
}

void checkRepeated(const ConfigurationFile& _file, Findings& _findings) {
  std::size_t repeated = 0;
  for (const Setting& setting : _file.settings) {
    if (!setting.isReplaced) continue;
    const Setting* const counts = _file.setting(setting.key);
    const bool isSame = setting.value == counts->value;
    Finding finding =
        findingOf("Q306", placeIn(_file, counts->keyPlace),
                  setting.key + " stands in line " + std::to_string(setting.keyPlace.line) + " too", "",
                  isSame ? "none: both say the same" : "the later value counts: " + inQuotes(counts->value));
    if (isSame) finding.severity = Severity::note;
    _findings.push_back(finding);
    if (++repeated == mostFindings) return;
  }
}

// The place of the line that begins with a separator and so swallows the rest of the text.
std::size_t endlessLine(std::string_view _text, std::size_t _begin) {
  while (_begin < _text.size() && _text[_begin] != '=' && _text[_begin] != ':') {
    const std::size_t end = _text.find('\n', _begin);
    if (end == std::string_view::npos) return _text.size();
    _begin = end + 1;
  }
  return _begin;
}

// Whether the text ends in nothing but blanks, if anything. Old editors end a file with another sign.
bool isEndOfBlanks(const ConfigurationFile& _file) {
  const std::size_t begin = _file.settings.empty() ? 0 : std::min(_file.settings.back().end, _file.text.size());
  return _file.text.find_first_not_of(" \t\r\n\x1A", begin) == std::string::npos;
}

// What is pending at the end of the text shows when one more pair is put behind it.
void checkRest(const ConfigurationFile& _file, Findings& _findings) {
  if (isEndOfBlanks(_file)) return;
  const std::string text = _file.text + (_file.text.back() == '\n' ? "" : "\n");
  const std::vector<Setting> longer = settingsOf(_file.path, text + "K=v\nK=v\n");
  const auto count = static_cast<std::ptrdiff_t>(_file.settings.size());
  const auto next = std::find_if(longer.begin() + count, longer.end(),
                                 [&](const Setting& _setting) { return _setting.end >= _file.text.size(); });
  if (next == longer.end()) {
    const std::size_t begin = _file.settings.empty() ? 0 : _file.settings.back().end + 1;
    const TextPlace place = TextPlaces(_file.text).of(endlessLine(_file.text, begin));
    _findings.push_back(findingOf("Q308", placeIn(_file, place), "the line has no key before its separator"));
  } else if (next->keyBegin < _file.text.size() && next->valueBegin > text.size()) {
    const std::string line = firstLine(part(_file, next->keyBegin, _file.text.size()));
    _findings.push_back(findingOf("Q305", placeIn(_file, next->keyPlace),
                                  "the line " + inQuotes(line) + " has no \"=\"", "", "the line sets nothing"));
  } else if (next->keyBegin < _file.text.size() && next->valueBegin + 1 >= text.size()) {
    _findings.push_back(findingOf("Q304", placeIn(_file, next->keyPlace), next->key + " has an empty value", "",
                                  "the line sets nothing"));
  }
}

}  // namespace

void checkKeys(const ConfigurationFile& _file, CfgUse _use, Findings& _findings) {
  if (!_file.isRead) return;
  const std::size_t before = _findings.size();
  for (const Setting& setting : _file.settings) {
    checkPair(_file, _use, setting, _findings);
    if (_findings.size() - before >= mostFindings) return;
  }
  checkRepeated(_file, _findings);
  checkRest(_file, _findings);
}

}  // namespace qmrkctl
