// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// The fixed version block of a module. Each word holds two numbers of 16 bits: major and minor in the most significant
/// word, build and revision in the least significant one, the first of the two in the high half.
struct FixedVersion {
  std::uint32_t fileMostSignificant = 0;
  std::uint32_t fileLeastSignificant = 0;
  std::uint32_t productMostSignificant = 0;
  std::uint32_t productLeastSignificant = 0;
};

/// Reads the version block from the file of a module, as data: no code of the module runs.
///
/// On Windows: LoadLibraryExA as data file, GetFileVersionInfoSizeA, GetFileVersionInfoA and VerQueryValueA of the root
/// block; the module stays loaded when a call after the first fails.
///
/// On Linux: the version note of the first regular file of that name in the folder of the running program, the folder
/// of this library, those of the loader (LD_LIBRARY_PATH, the run path of the program, the system's library folders)
/// and those of the shell (PATH). The names "qmrk_log.dll" and "LogTest.exe" stand for libqmrk_log.so and LogTest;
/// where no libqmrk_log.so lies in those folders, the file from which this code was loaded is read.
///
/// @param _module bare file name.
/// @param _version untouched on failure.
/// @return false when there is no such file or it carries no version.
bool readModuleVersion(const char* _module, FixedVersion& _version);

}  // namespace platform
