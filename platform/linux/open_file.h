// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// open(2) of a path string, for a file that child processes do not inherit. Never takes the number of a standard
/// stream that the application has closed, so that what is meant for the stream cannot end up in the file.
/// @param _flags those of open(2); O_CLOEXEC and O_NOCTTY are added, a new file gets mode 0666 less the umask.
/// @return the file, or -1 with errno set.
int openFile(const std::string& _path, int _flags);

/// The file under a number above those of the standard streams, which an application may have closed: what is meant for
/// a stream must not end up in a file.
/// @param _file consumed; -1 is handed on.
/// @return the file, or -1 with errno set.
int aboveStandardStreams(int _file);

}  // namespace platform
