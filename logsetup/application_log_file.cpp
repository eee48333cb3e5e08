// SPDX-License-Identifier: MIT
#include <utility>

#include "config/configuration_check.h"
#include "logsetup/application_log_appenders.h"
#include "logsetup/log_manager_binding.h"
#include "logsetup/setup_status.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "trace/folder_creation.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

using status::Failure;

constexpr char applicationLogsFolder[] = "\\Application logs";

// Makes the folder unless the file exists. The lines speak of the file and show the folder: required.
bool prepareFolder(const std::string& _dir, const std::string& _file) {
  if (checkIfFileDirectoryExists(_file)) {
    traceLine("--- Quillmark_logging::createApplicationSpecificLogFile() File %s exists.\r\n", _dir.c_str());
    return true;
  }
  traceLine("--- Quillmark_logging::createApplicationSpecificLogFile() Creating directory structure: %s\r\n",
            _dir.c_str());
  if (!createDirectory(_dir)) {
    traceLine("<!= Quillmark_logging::createApplicationSpecificLogFile() ERROR: Failed to create %s\r\n", _dir.c_str());
    return false;
  }
  traceLine("--- Quillmark_logging::createApplicationSpecificLogFile() File %s successfully created.\r\n",
            _dir.c_str());
  return true;
}

// Settles CA and folders.
// @param _ca may become "GE".
// @param _file receives the full path of the log file.
bool prepareFile(const std::string& _fileName, std::string& _ca, std::string& _file) {
  if (_fileName.empty()) {
    traceLine("<!= Quillmark_logging::createApplicationSpecificLogFile() Empty file name passed as an argument.\r\n");
    SetupStatus::noteFailure(Failure::emptyName, "the file name is empty", "");
    return false;
  }
  if (!checkSpecifiedConfiguration(_ca, _fileName)) {
    traceLine("-!- Quillmark_logging::createApplicationSpecificLogFile() Specified configuration NOT OK\r\n");
    SetupStatus::noteFailure(Failure::noConfiguration, "no configuration file that can be read for ", _ca);
    return false;
  }
  std::string commonLogFilePath;
  if (!getCommonLogFilePath(commonLogFilePath, _ca)) {
    traceLine(
        "<!= Quillmark_logging::createApplicationSpecificLogFile() ERROR: Failed to retrieve commonLogFilePath!\r\n");
    SetupStatus::noteFailure(Failure::noLogFolder, "the folder of the common log is unknown for ", _ca);
    return false;
  }
  traceLine("--- Quillmark_logging::createApplicationSpecificLogFile() commonLogFilePath=\"%s\"\r\n",
            commonLogFilePath.c_str());
  const std::string dir = commonLogFilePath + applicationLogsFolder;
  _file = dir + "\\" + _fileName + APPL_SPEC_LOG_FILE_SUFFIX;
  if (prepareFolder(dir, _file)) return true;
  SetupStatus::noteFailure(Failure::folderNotMade, "cannot create ", dir);
  return false;
}

}  // namespace

bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, bool _overWrite) {
  traceLine(
      "<=> Quillmark_logging::createApplicationSpecificLogFile() _fileName=\"%s\", _logLevel=\"%s\", _ca=%s (using "
      "default), _overWrite=%s\r\n",
      _fileName.c_str(), _logLevel.c_str(), GENERIC_CA, boolName(_overWrite));
  const SetupStatus shown(status::Call::createApplicationSpecificLogFile);
  std::string ca = GENERIC_CA;
  if (getEnvironmentVariable(DEFAULT_CA_NR, ca)) {
    SetupStatus::noteSource(status::CaSource::environment);
    traceLine("--- Quillmark_logging::createApplicationSpecificLogFile() Environment variable %s found, value is %s",
              DEFAULT_CA_NR, ca.c_str());
  }
  SetupStatus::noteSource(status::CaSource::generic);
  return createApplicationSpecificLogFile(std::move(_logLevel), std::move(_fileName), ca, _overWrite);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the exported signature.
bool createApplicationSpecificLogFile(std::string _logLevel, std::string _fileName, const std::string& _ca,
                                      bool _overWrite) {
  // The CA stands where the log level is named, and the other way round: required.
  traceLine(
      "==> Quillmark_logging::createApplicationSpecificLogFile(string, string, string, bool) _logLevel=\"%s\", "
      "_fileName=\"%s\",  _ca=%s, _overWrite=%s\r\n",
      _ca.c_str(), _fileName.c_str(), _logLevel.c_str(), boolName(_overWrite));
  const SetupStatus shown(status::Call::createApplicationSpecificLogFile);
  SetupStatus::noteAsked(_ca);
  std::string ca = _ca;
  std::string file;
  if (!prepareFile(_fileName, ca, file)) {
    return false;
  }
  setBoostFileSystemNameCheck();
  SetUpChange change;
  connectApplicationLogs(_logLevel, file, ca, _overWrite);
  updateLogLevels(ca);
  change.apply();
  SetupStatus::noteDone();
  traceLine("<== Quillmark_logging::createApplicationSpecificLogFile() OK\r\n");
  return true;
}

}  // namespace Quillmark_logging
