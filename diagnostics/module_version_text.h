// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace Quillmark_logging {

/// The version of a module, read from its file as data (platform/module_version.h). One thread at a time may use an
/// object.
class ModuleVersion {
 public:
  ModuleVersion() = default;

  /// @param _module bare file name.
  /// @return whether the version was read; if not, the object stays as it was.
  bool load(const char* _module);

  /// The file version, four decimal numbers joined by points; "Not initialized" until load() has succeeded.
  std::string fileVersionString() const;

 private:
  /// Major, minor, build and revision.
  using Numbers = std::array<std::uint32_t, 4>;

  static Numbers numbersOf(std::uint32_t _mostSignificant, std::uint32_t _leastSignificant);

  bool loaded_ = false;
  Numbers fileVersion_{};
  Numbers productVersion_{};
};

}  // namespace Quillmark_logging
