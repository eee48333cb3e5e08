// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Connects logs to an application's file: with a rolling appender when SPEC_LOG_ROTATION of the CA is on, else with
/// the log manager's plain one. Replaces an appender of the same kind that an earlier call connected to the same
/// pattern. Every pattern gets an appender of its own; a rolling one opens the file at once, plain ones share it.
/// @param _logLevel one logs pattern, or several, each ended by ";" (what follows the last ";" is dropped).
/// @param _file full path.
/// @param _overWrite whether the plain appenders empty the file, once, at the first message of any pattern.
void connectApplicationLogs(const std::string& _logLevel, const std::string& _file, const std::string& _ca,
                            bool _overWrite);

}  // namespace Quillmark_logging
