// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "logsetup/succeeding_appender.h"

namespace Quillmark_logging {

/// Connects logs to an application's file: with a rolling appender when SPEC_LOG_ROTATION of the CA is on, else with
/// the log manager's plain one. Replaces an appender of the same kind that an earlier call connected to the same
/// pattern. Every pattern gets an appender of its own; a rolling one opens the file at once, plain ones share it.
/// @param _logLevel one logs pattern, or several, each ended by ";" (what follows the last ";" is dropped).
/// @param _file full path.
/// @param _overWrite whether the plain appenders empty the file, once, at the first message of any pattern.
/// @param _takeOver ends when the calls have taken effect.
void connectApplicationLogs(const std::string& _logLevel, const std::string& _file, const std::string& _ca,
                            bool _overWrite, const std::shared_ptr<TakeOver>& _takeOver);

}  // namespace Quillmark_logging
