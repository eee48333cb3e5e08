// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qmrkctl {

/// The number of a backup of a log: 3 for "x_log.txt.3" and "x_log.txt"; 0 when it is not the name of a backup.
unsigned long backupNumber(std::string_view _name, std::string_view _logName);

/// The files of a log, oldest first: its backups, the highest number first, then the log itself, if they are there.
/// @param _path of the log, with separators of either kind; that of each file begins with it.
std::vector<std::string> filesOfLog(const std::string& _path);

/// The names of the application logs in a folder ("demo" of "demo_log.txt", also where only backups are left), sorted;
/// none when the folder cannot be read.
std::vector<std::string> applicationLogsIn(const std::string& _folder);

}  // namespace qmrkctl
