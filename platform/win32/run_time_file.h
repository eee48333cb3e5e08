// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "platform/win32/windows_api.h"

namespace platform {

/// Opens a file of the C run-time in text mode, which translates the line ends. Sharing is unrestricted (deny none);
/// the handle is not inherited. Anything but a file on a disk fails.
/// @param _flags those of _sopen; text mode and no inheritance are added.
/// @return the file, or -1.
int openRunTimeFile(const std::string& _path, int _flags);

/// The system's handle of the file.
HANDLE handleOfRunTimeFile(int _file);

/// Writes the text, in pieces that the run-time can take; asks the fault plan before each.
/// @return whether all was written.
bool writeToRunTimeFile(int _file, const char* _text, std::size_t _size);

/// Closes the file unless it is -1.
void closeRunTimeFile(int _file);

}  // namespace platform
