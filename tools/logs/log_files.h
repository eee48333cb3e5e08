// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qmrkctl {

/// The number of a log's backup: 3 for "x_log.txt.3" of "x_log.txt"; 0 for any other name.
unsigned long backupNumber(std::string_view _name, std::string_view _logName);

/// The existing files of a log, oldest first: its backups from the highest number down, then the log itself.
/// @param _path of the log, with separators of either kind; each result begins with it.
std::vector<std::string> filesOfLog(const std::string& _path);

/// The names of the application logs in a folder ("demo" for "demo_log.txt", even if only backups are left), sorted;
/// none if the folder cannot be read.
std::vector<std::string> applicationLogsIn(const std::string& _folder);

}  // namespace qmrkctl
