// SPDX-License-Identifier: MIT
#include "logsetup/application_log_appenders.h"

#include "config/cfg_data_manager.h"
#include "logsetup/class_list.h"
#include "logsetup/log_manager_binding.h"
#include "logsetup/rotation_settings.h"
#include "logsetup/setup_status.h"
#include "logsetup/succeeding_appender.h"
#include "logsetup/ts_mode.h"
#include "quillmark_logging_names.h"
#include "trace/trace_flags.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

// @param _makeAppender is called for each pattern, with it.
template <class MakeAppender>
void connectPatterns(const std::string& _logLevel, const char* _name, const std::string& _file,
                     MakeAppender _makeAppender) {
  const auto connect = [&](const std::string& _spec) {
    deleteAppender(_spec, _name);
    addAppender(_spec, threadSafeIfConfigured(_makeAppender(_spec), _file), _name, callableIndex);
  };
  if (_logLevel.find(';') == std::string::npos) {
    connect(_logLevel);
    return;
  }
  forEachClass(_logLevel, [&](const std::string& _spec, int _count) {
    // The name of another function is required in this line.
    traceLine("--- Quillmark_logging::setInitialLogLevels() tmp=\"%s\" tmpCnt=%i\r\n", _spec.c_str(), _count);
    connect(_spec);
  });
}

}  // namespace

void connectApplicationLogs(const std::string& _logLevel, const std::string& _file, const std::string& _ca,
                            bool _overWrite) {
  if (!CfgDataManager::getInstance(loadTimeTrace())->getCfgFlag(SPEC_LOG_ROTATION, _ca)) {
    traceLine("--- Quillmark_logging::createApplicationSpecificLogFile() Log rotation is disabled.\r\n");
    // Its copies share the file, which is emptied by the first message of any pattern, and by no other one.
    boost::logging::write_to_file writer(_file, _overWrite);
    SetupStatus::noteFile(_file, status::FileKind::plain);
    connectPatterns(_logLevel, APPENDER_COUT_APPL_SPEC, _file, [&writer](const std::string&) { return writer; });
    return;
  }
  const RotationSettings settings = readRotationSettings(_ca);
  SetupStatus::noteFile(_file, status::FileKind::rolling);
  connectPatterns(_logLevel, APPENDER_COUT_ROLLING_APPL_SPEC, _file, [&](const std::string& _spec) {
    return SucceedingAppender(_file, oneLessThan(settings.fileLimit), oneLessThan(settings.nrOfFiles), _spec);
  });
}

}  // namespace Quillmark_logging
