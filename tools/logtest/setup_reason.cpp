// SPDX-License-Identifier: MIT
#include "tools/logtest/setup_reason.h"

#include <algorithm>

#include "platform/native_path.h"

namespace logtest {
namespace {

bool isOn(std::string _value) {
  std::transform(_value.begin(), _value.end(), _value.begin(),
                 [](char _c) { return _c >= 'a' && _c <= 'z' ? static_cast<char>(_c - 'a' + 'A') : _c; });
  return _value == "TRUE";
}

std::string reasonOfLogState(const SetupFacts& _facts, const std::string& _file) {
  if (!_facts.logState) return "logging is switched off: LOG_STATE is missing in " + _file;
  return "logging is switched off: LOG_STATE is \"" + *_facts.logState + "\", not TRUE, in " + _file;
}

}  // namespace

std::string reasonOfFailure(const SetupFacts& _facts) {
  const std::string file = platform::nativePath(_facts.cfgFile);
  if (_facts.ca.empty()) return "the customer adaptation is empty";
  if (_facts.cfgFile.empty()) return "the system does not know the folder of the configuration files";
  if (!_facts.cfgExists) {
    return "the configuration is missing: there is no " + file + ", and none could be generated in that folder";
  }
  if (!_facts.cfgIsReadable) return "the configuration cannot be read: permission denied for " + file;
  if (!_facts.logState || !isOn(*_facts.logState)) return reasonOfLogState(_facts, file);
  if (!_facts.logFileName) return "the common log has no name: COMMON_LOG_FILE_NAME is missing in " + file;
  if (!_facts.logFolder) return "the system does not know the folder of the user's application data";
  if (!_facts.logFolderExists) {
    return "the folder of the common log cannot be created: " + platform::nativePath(*_facts.logFolder);
  }
  return "the cause does not show any more; QMRK_TRACE=TRUE in " + file + " traces the next set-up";
}

}  // namespace logtest
