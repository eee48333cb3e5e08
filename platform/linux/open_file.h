// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// What a file is for.
enum class FileRole {
  configuration,  ///< everybody may read a new one (0644 less the umask)
  /// A log or a file of records: the group may read a new one (0640 less the umask). A symbolic link in its place, and
  /// each one that it leads to, is followed only if its folder belongs to the user or to root and nobody else may write
  /// there.
  log,
};

/// open(2) of a path string, for a regular file that child processes do not inherit. Anything else in place of the file
/// fails at once, with EISDIR for a folder and EACCES for a pipe, a device or a link that is not to be followed. A file
/// on which another process has a lease is waited for, at most 100 ms. Never takes the number of a standard stream that
/// the application has closed, so that what is meant for the stream cannot end up in the file.
/// @param _flags those of open(2); O_CLOEXEC, O_NOCTTY and O_NONBLOCK are added.
/// @return the file, or -1 with errno set.
int openFile(const std::string& _path, int _flags, FileRole _role = FileRole::configuration);

/// The file under a number above those of the standard streams, which an application may have closed: what is meant for
/// a stream must not end up in a file.
/// @param _file consumed; -1 is handed on.
/// @return the file, or -1 with errno set.
int aboveStandardStreams(int _file);

}  // namespace platform
