// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// The version information of GetVersionExA. The basic block leaves suiteMask and productType 0.
struct VersionBlock {
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t build = 0;
  std::uint32_t platformId = 0;
  std::string servicePack;
  std::uint16_t suiteMask = 0;
  std::uint8_t productType = 0;
};

enum class VersionQuery { extended, basic };

/// GetVersionExA with the size of the extended or the basic block. Always false on Linux, which has no such query.
/// @param _block untouched on failure.
bool queryVersion(VersionQuery _query, VersionBlock& _block);

enum class RegistryResult { done, noKey, noValue };

/// Whether a key under the local-machine root can be opened for reading values (RegOpenKeyExA). Always false on Linux.
bool registryKeyExists(const std::string& _key);

/// Reads a text value of a key under the local-machine root into a buffer of 256 bytes (RegOpenKeyExA,
/// RegQueryValueExA). Always noKey on Linux.
/// @param _text receives the value up to its first NUL; untouched unless the result is done.
RegistryResult readRegistryText(const std::string& _key, const std::string& _value, std::string& _text);

}  // namespace platform
