// SPDX-License-Identifier: MIT
#include <deque>
#include <utility>

#include "config/cfg_data_manager.h"
#include "config/cfg_lookup.h"
#include "config/configuration_check.h"
#include "logsetup/class_list.h"
#include "logsetup/log_manager_binding.h"
#include "logsetup/setup_status.h"
#include "logsetup/ts_mode.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "trace/trace_flags.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

using platform::TextPieces;

// The class list as it is walked. A line end separates nothing: "A", line end, "B;" is the one class "AB".
void dropLineEnds(TextPieces& _classList) {
  for (std::string& piece : _classList)
    std::erase(piece, '\n');
  std::erase_if(_classList, [](const std::string& _piece) { return _piece.empty(); });
}

// A long list does not have to lie in memory besides the calls that are noted for it.
void enableClasses(TextPieces&& _classList) {
  forEachClass(std::move(_classList), [](const std::string& _class, int _count) {
    traceLine("--- Quillmark_logging::updateLogLevels() tmp=\"%s\" tmpCnt=%i\r\n", _class.c_str(), _count);
    enableLogs(_class);
  });
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): the public signature takes it by value.
bool setInitialLogLevels(std::string _logFile, const std::string& _ca) {
  traceLine("==> Quillmark_logging::setInitialLogLevels() _logFile=%s, TS_MODE=%s\r\n", _logFile.c_str(),
            boolName(tsMode()));
  const SetupStatus shown(status::Call::setInitialLogLevels);
  std::string initialLogLevels;
  if (!getCfgValue(COMMON_LOG_FILE_FILTER, initialLogLevels, _ca)) {
    SetupStatus::noteFailure(status::Failure::noFilter, "COMMON_LOG_FILE_FILTER is missing for ", _ca);
    return false;
  }
  SetupStatus::noteFilter(initialLogLevels);
  SetupStatus::noteFile(_logFile, status::FileKind::common);
  traceLine("--- Quillmark_logging::setInitialLogLevels() initialLogLevels=\"%s\"\r\n", initialLogLevels.c_str());
  SetUpChange change;
  // One open file for all classes.
  const boost::logging::write_to_file toFile(_logFile, false);
  forEachClass(initialLogLevels, [&toFile](const std::string& _class, int _count) {
    traceLine("--- Quillmark_logging::setInitialLogLevels() tmp=\"%s\" tmpCnt=%i\r\n", _class.c_str(), _count);
    deleteAppender(_class, APPENDER_WRITE2FILE_INIT);
    addAppender(_class, threadSafeIfConfigured(toFile), APPENDER_WRITE2FILE_INIT, callableIndex);
  });
  change.apply();
  SetupStatus::noteDone();
  traceLine("<== Quillmark_logging::setInitialLogLevels()\r\n");
  return true;
}

bool updateLogLevels(const std::string& _ca) {
  traceLine("==> Quillmark_logging::updateLogLevels() _ca=%s\r\n", _ca.c_str());
  const SetupStatus shown(status::Call::updateLogLevels);
  std::string ca = _ca;
  if (!checkSpecifiedConfiguration(ca, "")) {
    traceLine("-!- Quillmark_logging::updateLogLevels() Specified configuration NOT OK\r\n");
    SetupStatus::noteUpdateFailure(status::Failure::noConfiguration, "no configuration file that can be read for ",
                                   _ca);
    return false;
  }
  TextPieces enabledLogClasses;
  if (!CfgDataManager::getInstance(loadTimeTrace())->getEnabledLogClasses(ca, enabledLogClasses)) {
    traceLine("<!= Quillmark_logging::updateLogLevels() ERROR: Failed to get enabled log class/es.\r\n");
    SetupStatus::noteUpdateFailure(status::Failure::listUnreadable, "the class list cannot be read for ", ca);
    return false;
  }
  SetupStatus::noteClasses(enabledLogClasses);
  SetUpChange change;
  // A list of nothing but line ends counts as empty.
  dropLineEnds(enabledLogClasses);
  if (enabledLogClasses.empty()) {
    traceLine("--- Quillmark_logging::updateLogLevels() enabledLogClasses is empty. Disabling all log classes.\r\n");
    disableLogs("*");
  } else {
    if (enabledLogClasses.back().back() != ';') enabledLogClasses.back() += ';';
    if (freeFunctionTrace()) {
      traceLine("--- Quillmark_logging::updateLogLevels() enabledLogClasses=\"%s\"\r\n",
                platform::joined(enabledLogClasses).c_str());
    }
    disableLogs("*");
    enableClasses(std::move(enabledLogClasses));
  }
  change.apply();
  traceLine("<== Quillmark_logging::updateLogLevels()\r\n");
  return true;
}

bool updateLogLevels() {
  // Names the default also where the environment then says otherwise; the lines below have no line end: both required.
  traceLine("==> Quillmark_logging::updateLogLevels() Using default ca=%s\r\n", GENERIC_CA);
  std::string value;
  if (getEnvironmentVariable(DEFAULT_CA_NR, value)) {
    traceLine("<== Quillmark_logging::updateLogLevels() Environment variable %s found, value is %s", DEFAULT_CA_NR,
              value.c_str());
    return updateLogLevels(value);
  }
  traceLine("<== Quillmark_logging::updateLogLevels() Using default CA=%s", GENERIC_CA);
  return updateLogLevels(std::string(GENERIC_CA));
}

void enableAllLogs() {
  traceLine("==> Quillmark_logging::enableAllLogs()\r\n");
  const SetupStatus shown(status::Call::enableAllLogs);
  enableLogs("*");
  traceLine("<== Quillmark_logging::enableAllLogs()\r\n");
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the public signature takes it by value.
void enableSpecifiedLogs(std::string _logs) {
  traceLine("==> Quillmark_logging::enableSpecifiedLogs()\r\n");
  const SetupStatus shown(status::Call::enableSpecifiedLogs);
  SetupStatus::notePattern(_logs);
  enableLogs(_logs);
  traceLine("<== Quillmark_logging::enableSpecifiedLogs()\r\n");
}

void disableAllLogs() {
  traceLine("==> Quillmark_logging::disableAllLogs()\r\n");
  const SetupStatus shown(status::Call::disableAllLogs);
  disableLogs("*");
  traceLine("<== Quillmark_logging::disableAllLogs()\r\n");
}

}  // namespace Quillmark_logging
