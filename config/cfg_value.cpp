// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

#include "config/cfg_data_manager.h"
#include "config/cfg_parser.h"
#include "platform/text_file.h"
#include "trace/trace_line.h"

using Quillmark_logging::CfgPairPlace;
using Quillmark_logging::expandTabs;
using Quillmark_logging::forEachCfgPair;
using Quillmark_logging::traceLineIf;
using Quillmark_logging::withTabsExpanded;

namespace {

int length(const std::string& _s) { return static_cast<int>(_s.length()); }

bool isKey(std::string_view _pairKey, const std::string& _key) {
  return _pairKey.find('\t') == std::string_view::npos ? _pairKey == _key : withTabsExpanded(_pairKey) == _key;
}

// What the map would tell, without a map: the last value of the key, without the blanks at its end.
bool findValue(std::string_view _text, const std::string& _key, std::string& _value) {
  bool isFound = false;
  std::string found;
  forEachCfgPair(_text, [&](std::string_view _pairKey, std::string_view _pairValue, const CfgPairPlace&) {
    if (!isKey(_pairKey, _key)) return;
    found = withTabsExpanded(_pairValue.substr(0, _pairValue.find_last_not_of(" \t") + 1));
    isFound = true;
  });
  if (isFound) _value = std::move(found);
  return isFound;
}

}  // namespace

bool CfgDataManager::removeTrailingSpaces(std::string& _s) {
  traceLineIf(tracing(), "==> CfgDataManager::removeTrailingSpaces() _s.length()=%d\r\n", length(_s));
  const auto lengthBefore = _s.length();
  _s.erase(_s.find_last_not_of(' ') + 1);
  const int spCnt = static_cast<int>(lengthBefore - _s.length());
  traceLineIf(tracing(), "<== CfgDataManager::removeTrailingSpaces()  _s.length()=%d, spCnt=%d\r\n", length(_s), spCnt);
  return spCnt > 0;
}

bool CfgDataManager::cfgDataStrToMap(CfgMap& _cMap, std::string& _str) {
  traceLineIf(tracing(), "==> CfgDataManager::cfgDataStrToMap() _str.length()=%d\r\n", length(_str));
  expandTabs(_str);
  forEachCfgPair(_str, [this, &_cMap](std::string_view _key, std::string_view _value, const CfgPairPlace&) {
    const std::string key(_key);
    std::string value(_value);
    if (value.back() == ' ') removeTrailingSpaces(value);
    traceLineIf(tracing(), "--- CfgDataManager::cfgDataStrToMap() Adding key=\"%s\"(%d), value=\"%s\"(%d) to map\r\n",
                key.c_str(), length(key), value.c_str(), length(value));
    _cMap[key] = std::move(value);
  });
  traceLineIf(tracing(), "<== CfgDataManager::cfgDataStrToMap() _cMap.size()=%d => return %s\r\n",
              static_cast<int>(_cMap.size()), _cMap.empty() ? "FALSE" : "TRUE");
  return !_cMap.empty();
}

bool CfgDataManager::getCfgValue(const CfgMap& _cMap, const std::string& _key, std::string& _value) {
  traceLineIf(tracing(), "==> CfgDataManager::getCfgValue() _key=\"%s\"\r\n", _key.c_str());
  if (_cMap.empty()) {
    traceLineIf(tracing(), "<!= CfgDataManager::getCfgValue() ERROR: Configuration data map was empty. \r\n");
    return false;
  }
  const auto entry = _cMap.find(_key);
  if (entry == _cMap.end()) {
    traceLineIf(tracing(), "<!= CfgDataManager::getCfgValue() _key=\"%s\" was NOT found.\r\n", _key.c_str());
    return false;
  }
  _value = entry->second;
  traceLineIf(tracing(), "<== CfgDataManager::getCfgValue() Found match: _key=\"%s\", _value\"%s\"\r\n",
              entry->first.c_str(), _value.c_str());
  return true;
}

bool CfgDataManager::findTraced(std::string& _text, const std::string& _key, std::string& _value) {
  CfgMap cMap;
  cfgDataStrToMap(cMap, _text);
  return getCfgValue(cMap, _key, _value);
}

bool CfgDataManager::getCfgValue(const std::string& _cfgFile, const std::string& _key, std::string& _value) {
  traceLineIf(tracing(), "==> CfgDataManager::getCfgValue() _cfgFile=\"%s\", _key=\"%s\"\r\n", _cfgFile.c_str(),
              _key.c_str());
  std::string text;
  if (!platform::TextReader(_cfgFile).readAll(text)) {
    traceLineIf(tracing(), "<!= CfgDataManager::getCfgValue() ERROR: Failed to open file \"%s\"\r\n", _cfgFile.c_str());
    return false;
  }
  if (!(tracing() ? findTraced(text, _key, _value) : findValue(text, _key, _value))) {
    traceLineIf(tracing(), "<!= CfgDataManager::getCfgValue() _key=\"%s\"was NOT found.\r\n", _key.c_str());
    return false;
  }
  traceLineIf(tracing(), "<== CfgDataManager::getCfgValue() Found match for _key=\"%s\", value=\"%s\"\r\n",
              _key.c_str(), _value.c_str());
  return true;
}

bool CfgDataManager::getCfgFlag(const std::string& _key, const std::string& _ca) {
  std::string path;
  std::string value;
  if (!getQmrkCfgFilePath(path, _ca, true) || !getCfgValue(path, _key, value)) return false;
  toUpper(value);
  return value == "TRUE";
}

std::string CfgDataManager::toUpperCopy(const std::string& _s) {
  std::string copy = _s;
  toUpper(copy);
  return copy;
}

void CfgDataManager::toUpper(std::string& _s) {
  std::transform(_s.begin(), _s.end(), _s.begin(),
                 [](unsigned char _c) { return static_cast<char>(std::toupper(_c)); });
}
