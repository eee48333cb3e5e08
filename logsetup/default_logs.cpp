// SPDX-License-Identifier: MIT
#include <utility>

#include "config/cfg_data_manager.h"
#include "config/cfg_lookup.h"
#include "config/configuration_check.h"
#include "config/setup_error_record.h"
#include "diagnostics/os_info.h"
#include "logsetup/log_manager_binding.h"
#include "logsetup/setup_status.h"
#include "logsetup/ts_mode.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "trace/folder_creation.h"
#include "trace/trace_flags.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

using status::Failure;

bool isLoggingSwitchedOn(CfgDataManager& _store, const std::string& _ca, const std::string& _calledBy) {
  std::string cfgPath;
  if (!_store.getQmrkCfgFilePath(cfgPath, _ca, true)) {
    traceLine("<!= Quillmark_logging::initDefaultLogs() Failed to get QMRK cfg path for %s.\r\n", _ca.c_str());
    writeQmrkErrorInfo(unspecifiedError, _ca, _calledBy, "Failed to get configuration file path for " + _ca);
    SetupStatus::noteFailure(Failure::noPath, "no path of the configuration file of ", _ca);
    return false;
  }
  SetupStatus::noteInEffect(_ca, cfgPath);
  if (!_store.getCfgFlag(LOG_STATE, _ca)) {
    traceLine("--- Quillmark_logging::initDefaultLogs() Logging is disabled...\r\n");
    traceLine("<!= Quillmark_logging::initDefaultLogs() FAILED\r\n");
    SetupStatus::noteFailure(Failure::switchedOff, "LOG_STATE is not TRUE in ", cfgPath);
    return false;
  }
  return true;
}

// Creates the folder when the file is missing, whether the folder is there or not.
bool provideFolderOf(const std::string& _logFile, const std::string& _folder) {
  if (checkIfFileDirectoryExists(_logFile)) {
    // Names the folder as the file: required.
    traceLine("--- Quillmark_logging::initDefaultLogs() File %s exists.\r\n", _folder.c_str());
    return true;
  }
  traceLine("--- Quillmark_logging::initDefaultLogs() Creating directory structure: %s\r\n", _folder.c_str());
  if (!createDirectory(_folder)) {
    traceLine("<!= Quillmark_logging::initDefaultLogs() ERROR: Failed to create %s\r\n", _folder.c_str());
    return false;
  }
  traceLine("--- Quillmark_logging::initDefaultLogs() Directory %s succesfully created.\r\n", _folder.c_str());
  return true;
}

// The full name of the common log file, in a folder that is there.
bool provideCommonLogFile(std::string& _logFile, const std::string& _ca) {
  std::string commonLogFileName;
  if (!getCfgValue(COMMON_LOG_FILE_NAME, commonLogFileName, _ca)) {
    SetupStatus::noteFailure(Failure::noFileName, "COMMON_LOG_FILE_NAME is missing for ", _ca);
    return false;
  }
  traceLine("--- Quillmark_logging::initDefaultLogs() commonLogFileName=\"%s\"\r\n", commonLogFileName.c_str());
  std::string commonLogFilePath;
  if (!getCommonLogFilePath(commonLogFilePath, _ca)) {
    SetupStatus::noteFailure(Failure::noLogFolder, "the folder of the common log is unknown for ", _ca);
    return false;
  }
  traceLine("--- Quillmark_logging::initDefaultLogs() commonLogFilePath=\"%s\"\r\n", commonLogFilePath.c_str());
  _logFile = commonLogFilePath + "\\" + commonLogFileName;
  if (provideFolderOf(_logFile, commonLogFilePath)) return true;
  SetupStatus::noteFailure(Failure::folderNotMade, "cannot create ", commonLogFilePath);
  return false;
}

// Replaces what an earlier call has connected to every log.
void connectToAllLogs(CfgDataManager& _store, const std::string& _ca, bool _writeToCout) {
  const std::string all = "*";
  deleteAppender(all, QMRK_APPENDERS);
  deleteModifier(all, QMRK_MODIFIERS);
  if (_writeToCout)
    addAppender(all, threadSafeIfConfigured(&boost::logging::write_to_cout), QMRK_APPENDERS, callableIndex);
  const bool milliseconds = _store.getCfgFlag(MILLISECOND_RESOLUTION, _ca);
  const char* const stamp = milliseconds ? "$yyyy$MM$dd $hh:$mm:$ss.$mss " : "$yyyy$MM$dd $hh:$mm:$ss ";
  addModifier(all, boost::logging::prepend_time_ms(stamp), QMRK_MODIFIERS, callableIndex);
  addModifier(all, &boost::logging::prepend_prefix, QMRK_MODIFIERS, callableIndex);
  addModifier(all, &boost::logging::append_enter, QMRK_MODIFIERS, callableIndex);
}

void setUpAllLogs(CfgDataManager& _store, const std::string& _logFile, const std::string& _ca, bool _writeToCout) {
  SetUpChange change;
  connectToAllLogs(_store, _ca, _writeToCout);
  setInitialLogLevels(_logFile, _ca);
  updateLogLevels(_ca);
  change.apply();
}

}  // namespace

bool initDefaultLogs(std::string _calledBy, bool _writeToCout) {
  traceLine("==> Quillmark_logging::initDefaultLogs(string, bool) Called by \"%s\", _writeToCout=%s\r\n",
            _calledBy.c_str(), boolName(_writeToCout));
  const SetupStatus shown(status::Call::initDefaultLogs);
  std::string value;
  if (getEnvironmentVariable(DEFAULT_CA_NR, value)) {
    // No line end: required.
    traceLine("<== Quillmark_logging::initDefaultLogs(string, bool) Environment variable %s found, value is %s",
              DEFAULT_CA_NR, value.c_str());
    SetupStatus::noteSource(status::CaSource::environment);
    return initDefaultLogs(std::move(_calledBy), value, _writeToCout);
  }
  traceLine("<== Quillmark_logging::initDefaultLogs(string, bool) Using default ca=%s\r\n", GENERIC_CA);
  SetupStatus::noteSource(status::CaSource::generic);
  return initDefaultLogs(std::move(_calledBy), std::string(GENERIC_CA), _writeToCout);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the public signature takes it by value.
bool initDefaultLogs(std::string _calledBy, const std::string& _ca, bool _writeToCout) {
  traceLine(
      "==> Quillmark_logging::initDefaultLogs(string, string, bool) Called by \"%s\", _ca=%s, _writeToCout=%s, "
      "TS_MODE=%s\r\n",
      _calledBy.c_str(), _ca.c_str(), boolName(_writeToCout), boolName(tsMode()));
  const SetupStatus shown(status::Call::initDefaultLogs);
  SetupStatus::noteApplication(_calledBy);
  SetupStatus::noteAsked(_ca);
  std::string ca = _ca;
  if (!checkSpecifiedConfiguration(ca, _calledBy)) {
    traceLine("-!- Quillmark_logging::initDefaultLogs() Specified configuration NOT OK\r\n");
    SetupStatus::noteFailure(Failure::noConfiguration, "no configuration file that can be read for ", _ca);
    return false;
  }
  CfgDataManager& store = *CfgDataManager::getInstance(loadTimeTrace());
  if (!isLoggingSwitchedOn(store, ca, _calledBy)) return false;
  std::string logFile;
  if (!provideCommonLogFile(logFile, ca)) return false;
  SetupStatus::noteCommonLog(logFile);
  setUpAllLogs(store, logFile, ca, _writeToCout);
  SetupStatus::noteDone();
  boost::logging::flush_log_cache();
  writeOSInfo(ca);
  traceLine("<== Quillmark_logging::initDefaultLogs() OK\r\n");
  return true;
}

}  // namespace Quillmark_logging
