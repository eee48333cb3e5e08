// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace Quillmark_logging {

/// The settings of the rotation as texts, in the form in which the configuration holds them.
struct RotationSettings {
  /// Bytes.
  std::string fileLimit;
  std::string nrOfFiles;
};

/// Reads the settings of a CA. Unless both can be read, each that cannot has its default, and the one before it stays
/// as it is configured. Neither is validated (isNumber).
RotationSettings readRotationSettings(const std::string& _ca);

/// The number that a setting stands for in the rolling appender, which counts backups and not files and rolls at a size
/// and not above it: the value of C's atoi less one. A value beyond the range of an int is taken as the nearest in it;
/// one less than the smallest int is the largest.
std::int32_t oneLessThan(const std::string& _setting);

}  // namespace Quillmark_logging
