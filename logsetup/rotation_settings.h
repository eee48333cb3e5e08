// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace Quillmark_logging {

/// The settings of the rotation, as they stand in the configuration.
struct RotationSettings {
  /// Bytes.
  std::string fileLimit;
  std::string nrOfFiles;
};

/// Reads the settings of a CA, the size first. From the first that is missing on, each has its default. Validates
/// neither (isNumber).
RotationSettings readRotationSettings(const std::string& _ca);

/// The number that a setting means to the rolling appender, which counts backups, not files, and rolls at a size, not
/// above it: the value of C's atoi less one. A value beyond the range of an int is taken as the nearest in it; one less
/// than the smallest int is the largest.
std::int32_t oneLessThan(const std::string& _setting);

}  // namespace Quillmark_logging
