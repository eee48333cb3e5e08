// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "diagnostics/status_file_values.h"
#include "platform/errors.h"

namespace Quillmark_logging {

// What became of the log files, for the status page. Nothing here throws or waits for the disk; any thread may call.

/// Notes a line that an appender of this library could not write, and shows it.
void noteLostLine(const std::string& _path, platform::ErrorCode _error) noexcept;

/// Notes that the file of such an appender is open again.
void noteOpenedFile(const std::string& _path) noexcept;

/// Adds files to those that the page tells of; one that is there already gets the new kind.
void addFiles(const std::vector<status::FileValues>& _files);

/// The files as they are now. May throw std::bad_alloc.
std::vector<status::FileValues> currentFiles();

/// Shows the files. Without effect when there is no page; where the page is being written, whoever writes it shows
/// them.
void showFiles() noexcept;

/// To be called by who has written the page otherwise: shows what others could not show meanwhile.
void showMissedFiles() noexcept;

}  // namespace Quillmark_logging
