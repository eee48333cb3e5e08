// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <vector>

#include "config/cfg_data_manager.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/system/file_name.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

constexpr std::array<std::string_view, 5> switches = {names::LOG_STATE, names::MILLISECOND_RESOLUTION,
                                                      names::SPEC_LOG_ROTATION, names::TS_APPENDERS, names::QMRK_TRACE};

bool isSwitch(std::string_view _key) { return std::find(switches.begin(), switches.end(), _key) != switches.end(); }

// Of a part of a path; above it no file system goes.
constexpr std::size_t longestPart = 255;
// What a rotation tests, one after the other, before it goes on.
constexpr long long mostBackups = 10'000;
// Bytes. A smaller limit was hardly meant as bytes.
constexpr long long smallestLimit = 4096;

// The parts of a path between its separators.
std::vector<std::string_view> partsOf(std::string_view _path) {
  std::vector<std::string_view> parts;
  for (std::size_t begin = 0; begin <= _path.size();) {
    const std::size_t end = std::min(_path.find_first_of("\\/", begin), _path.size());
    parts.push_back(_path.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

bool isAbsolute(std::string_view _path) {
  return _path.starts_with('/') || _path.starts_with('\\') || (_path.size() > 1 && _path[1] == ':');
}

// Whether a value stands in quotes, which nothing takes away.
bool isQuoted(std::string_view _value) {
  return _value.size() > 1 && _value.front() == _value.back() && (_value.front() == '"' || _value.front() == '\'');
}

constexpr std::string_view digits = "0123456789";

bool isNumber(const std::string& _value) { return _value.find_first_not_of(digits) == std::string::npos; }

bool isLetter(char _c) { return (_c >= 'A' && _c <= 'Z') || (_c >= 'a' && _c <= 'z') || _c == '_'; }

// "$NAME", "${NAME}" or "%NAME%" anywhere, or "~" as the first folder.
bool hasVariable(std::string_view _path) {
  if (_path == "~" || _path.starts_with("~/") || _path.starts_with("~\\")) return true;
  for (std::size_t i = 0; i + 1 < _path.size(); ++i) {
    if (_path[i] == '$' && (isLetter(_path[i + 1]) || _path[i + 1] == '{')) return true;
    if (_path[i] != '%') continue;
    const std::string_view name = _path.substr(i + 1);
    const std::size_t end = name.find('%');
    if (end != std::string_view::npos && end > 0 && std::all_of(name.begin(), name.begin() + end, isLetter))
      return true;
  }
  return false;
}

std::string upperCase(const std::string& _text) { return CfgDataManager::getInstance(false)->toUpperCopy(_text); }

// One file and what is found in it.
class ValueCheck {
 public:
  ValueCheck(const ConfigurationFile& _file, Findings& _findings) : file_(_file), findings_(_findings) {}

  void checkAll() {
    for (const Setting& setting : file_.settings) {
      if (!setting.isReplaced) checkSetting(setting);
    }
    checkMissing();
  }

 private:
  void add(std::string_view _code, const Setting& _setting, const std::string& _text, const std::string& _fix = "",
           const std::string& _effect = "") {
    findings_.push_back(findingOf(_code, placeIn(file_, _setting.valuePlace), _text, _fix, _effect));
  }

  std::string_view written(const Setting& _setting) const {
    return std::string_view(file_.text).substr(_setting.valueBegin, _setting.end - _setting.valueBegin);
  }

  void checkSetting(const Setting& _setting) {
    const std::string_view raw = written(_setting);
    // Said of the key already.
    if (raw.find('\n') != std::string_view::npos) return;
    checkForm(_setting, raw);
    if (isSwitch(_setting.key)) checkSwitch(_setting);
    if (_setting.key == names::COMMON_LOG_FILE_NAME) checkName(_setting);
    if (_setting.key == names::COMMON_LOG_FILE_ROOT) checkRoot(_setting);
    if (_setting.key == names::SPEC_LOG_FILE_LIMIT) checkLimit(_setting);
    if (_setting.key == names::SPEC_NR_OF_LOG_FILES) checkNumber(_setting);
    if (_setting.key == names::CA_NR) checkCa(_setting);
  }

  void checkForm(const Setting& _setting, std::string_view _raw) {
    const std::size_t hash = _raw.find('#');
    // Behind a blank it is meant as a comment.
    if (hash != std::string_view::npos && hash > 0 && _raw[hash - 1] != ' ' && _raw[hash - 1] != '\t') {
      findings_.push_back(
          findingOf("Q307",
                    {placeIn(file_, _setting.valuePlace).file, _setting.valuePlace.line,
                     _setting.valuePlace.column + static_cast<int>(hash)},
                    "a \"#\" cuts the value of " + _setting.key, "",
                    "the value is " + inQuotes(_setting.value) + ": a \"#\" starts a comment anywhere"));
    }
    const std::size_t tab = _raw.substr(0, hash).find('\t');
    const bool isInside = tab != std::string_view::npos && tab < _raw.find_last_not_of(" \t");
    if (isInside) add("Q323", _setting, "the value of " + _setting.key + " has a tab");
    if (_setting.value.starts_with(' ') && !isInside) {
      add("Q322", _setting, "the value of " + _setting.key + " begins with a blank", "",
          "the value is " + inQuotes(_setting.value));
    }
  }

  void checkSwitch(const Setting& _setting) {
    const std::string value = upperCase(_setting.value);
    if (value == "TRUE" || value.starts_with(' ')) return;
    const bool isState = _setting.key == names::LOG_STATE;
    if (value != "FALSE") {
      add("Q303", _setting, _setting.key + " is " + inQuotes(_setting.value) + ", neither TRUE nor FALSE",
          "write " + _setting.key + "=TRUE, or FALSE", isState ? "it is off: initDefaultLogs fails" : "it is off");
    } else if (isState) {
      add("Q311", _setting, "LOG_STATE is FALSE");
    }
  }

  void checkName(const Setting& _setting) {
    const std::string& name = _setting.value;
    const std::string_view last = partsOf(name).back();
    if (last.empty() || last == "." || last == "..") {
      add("Q313", _setting, "COMMON_LOG_FILE_NAME is " + inQuotes(name));
    } else if (isAbsolute(name)) {
      add("Q320", _setting, "COMMON_LOG_FILE_NAME is the absolute path " + inQuotes(name));
    }
    checkUsedName(file_, _setting, findings_);
    checkPath(_setting, "Q313", "the common log cannot be opened: the set-up says true and every line is lost");
  }

  void checkRoot(const Setting& _setting) {
    const std::string& root = _setting.value;
    if (root.empty()) add("Q319", _setting, "COMMON_LOG_FILE_ROOT is empty");
    if (isAbsolute(root)) add("Q320", _setting, "COMMON_LOG_FILE_ROOT is the absolute path " + inQuotes(root));
    checkPath(_setting, "Q501", "");
  }

  // What name and root have in common.
  void checkPath(const Setting& _setting, std::string_view _codeOfNoName, const std::string& _effectOfNoName) {
    if (isQuoted(_setting.value)) {
      const std::string plain = _setting.value.substr(1, _setting.value.size() - 2);
      add("Q326", _setting, "the value of " + _setting.key + " stands in quotes",
          "write " + _setting.key + "=" + plain);
    }
    if (hasVariable(_setting.value)) add("Q329", _setting, _setting.key + " is " + inQuotes(_setting.value));
    const std::vector<std::string_view> parts = partsOf(_setting.value);
    // One that ends so is no name of a file, as was said.
    const bool isOutside = std::find(parts.begin(), parts.end() - 1, "..") != parts.end() - 1 ||
                           (parts.back() == ".." && _setting.key == names::COMMON_LOG_FILE_ROOT);
    if (isOutside) add("Q321", _setting, _setting.key + " is " + inQuotes(_setting.value));
    checkParts(_setting, parts, _codeOfNoName, _effectOfNoName);
  }

  // Whether files and folders can have the names in a path.
  void checkParts(const Setting& _setting, const std::vector<std::string_view>& _parts, std::string_view _code,
                  const std::string& _effect) {
    for (const std::string_view& part : _parts) {
      const bool isFile = &part == &_parts.back() && _setting.key == names::COMMON_LOG_FILE_NAME;
      if (part.size() > longestPart) {
        add(_code, _setting, "a name in " + _setting.key + " has " + std::to_string(part.size()) + " characters",
            "write a name of at most " + std::to_string(longestPart), _effect);
        return;
      }
      // Quotes were said to be wrong.
      if (isQuoted(_setting.value) || (isFile ? toolsystem::isFileName(part) : toolsystem::isFolderName(part)))
        continue;
      add(_code, _setting, _setting.key + " has " + inQuotes(part) + ", which can name no file on this system",
          "write another name", _effect);
      return;
    }
  }

  // Whether limits of the rotation count.
  bool isRotated() const {
    const Setting* const rotation = file_.setting(names::SPEC_LOG_ROTATION);
    return rotation != nullptr && upperCase(rotation->value) == "TRUE";
  }

  // What is behind the digits of a number, and what it becomes where it is too large.
  void checkDigits(const Setting& _setting, long long _number) {
    constexpr long long largest = std::numeric_limits<std::int32_t>::max();
    if (_number > largest) {
      add("Q317", _setting, _setting.key + " is " + inQuotes(_setting.value), "write a smaller number",
          "it counts as " + std::to_string(largest));
    }
    const std::size_t end = _setting.value.find_first_not_of(digits);
    if (end == std::string::npos || end == 0) return;
    add("Q317", _setting, _setting.key + " is " + inQuotes(_setting.value), "",
        "it counts as " + _setting.value.substr(0, end));
  }

  void checkLimit(const Setting& _setting) {
    if (!isRotated()) return;
    const long long limit = std::strtoll(_setting.value.c_str(), nullptr, 10);
    if (limit < 1) add("Q314", _setting, "SPEC_LOG_FILE_LIMIT is " + inQuotes(_setting.value));
    if (limit == 1) add("Q315", _setting, "SPEC_LOG_FILE_LIMIT is 1");
    if (limit > 1 && limit < smallestLimit && isNumber(_setting.value))
      add("Q332", _setting, "SPEC_LOG_FILE_LIMIT is " + _setting.value + " bytes");
    checkDigits(_setting, limit);
  }

  void checkNumber(const Setting& _setting) {
    if (!isRotated()) return;
    const long long number = std::strtoll(_setting.value.c_str(), nullptr, 10);
    if (number < 2) add("Q316", _setting, "SPEC_NR_OF_LOG_FILES is " + inQuotes(_setting.value));
    if (number > mostBackups) add("Q327", _setting, "SPEC_NR_OF_LOG_FILES is " + inQuotes(_setting.value));
    checkDigits(_setting, std::min(number, mostBackups));
  }

  void checkCa(const Setting& _setting) {
    const std::string name = file_.path.substr(file_.path.find_last_of("\\/") + 1);
    if (name.find("_" + _setting.value + ".") == std::string::npos) {
      add("Q324", _setting, "CA_NR=" + _setting.value + " in " + name);
    }
  }

  void addMissing(std::string_view _code, const std::string& _text) {
    findings_.push_back(findingOf(_code, placeOf(file_), _text));
  }

  void checkMissing() {
    const auto has = [this](std::string_view _key) { return file_.setting(_key) != nullptr; };
    if (!has(names::LOG_STATE)) addMissing("Q309", "LOG_STATE is missing");
    if (!has(names::COMMON_LOG_FILE_NAME)) addMissing("Q310", "COMMON_LOG_FILE_NAME is missing");
    if (!has(names::COMMON_LOG_FILE_FILTER)) addMissing("Q312", "COMMON_LOG_FILE_FILTER is missing");
    checkFilterValue();
    if (!has(names::SPEC_LOG_ROTATION)) {
      for (const char* const key : {names::SPEC_LOG_FILE_LIMIT, names::SPEC_NR_OF_LOG_FILES}) {
        if (has(key))
          add("Q328", *file_.setting(key), std::string(key) + " stands there, and SPEC_LOG_ROTATION is missing");
      }
      return;
    }
    if (isRotated() && has(names::SPEC_LOG_FILE_LIMIT) != has(names::SPEC_NR_OF_LOG_FILES)) {
      addMissing("Q318", has(names::SPEC_LOG_FILE_LIMIT) ? "SPEC_NR_OF_LOG_FILES is missing"
                                                         : "SPEC_LOG_FILE_LIMIT is missing");
    }
  }

  // One of blanks alone.
  void checkFilterValue() {
    const Setting* const filter = file_.setting(names::COMMON_LOG_FILE_FILTER);
    if (filter != nullptr && filter->value.empty()) add("Q312", *filter, "COMMON_LOG_FILE_FILTER is empty");
  }

  const ConfigurationFile& file_;
  Findings& findings_;
};

}  // namespace

void checkValues(const ConfigurationFile& _file, Findings& _findings) {
  if (_file.isRead) ValueCheck(_file, _findings).checkAll();
}

}  // namespace qmrkctl
