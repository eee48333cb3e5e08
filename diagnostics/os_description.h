// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/system_version.h"

namespace Quillmark_logging {

/// What the description asks of the system, and the console that it writes to.
class SystemFacts {
 public:
  virtual ~SystemFacts() = default;

  // As in platform/system_version.h.
  virtual bool queryVersion(platform::VersionQuery _query, platform::VersionBlock& _block) = 0;
  virtual bool registryKeyExists(const std::string& _key) = 0;
  virtual platform::RegistryResult readRegistryText(const std::string& _key, const std::string& _value,
                                                    std::string& _text) = 0;

  /// Writes the text to the console of the process, whether the trace is on or not.
  virtual void printToConsole(const std::string& _text) = 0;
};

/// Describes a Windows version in one line: name, edition, service pack and build, as far as the version has them. The
/// line of the NT family ends with a carriage return, those of Win32s and Windows Me with a line feed, the others with
/// a blank.
/// @param _text the description is appended to it; on failure perhaps a part of it.
/// @return false when neither version query succeeds, or when the extended one fails and the registry does not name the
///   kind of product.
bool describeSystem(SystemFacts& _facts, std::string& _text);

}  // namespace Quillmark_logging
