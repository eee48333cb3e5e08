// SPDX-License-Identifier: MIT
#include "platform/system_version.h"

#include "platform/fault.h"

// Linux has neither query. The fault plan is asked all the same, so that a test counts the queries on both platforms.

namespace platform {

bool queryVersion(VersionQuery /*_query*/, VersionBlock& /*_block*/) {
  static_cast<void>(injectedFault(Call::systemVersion));
  return false;
}

bool registryKeyExists(const std::string& /*_key*/) {
  static_cast<void>(injectedFault(Call::registry));
  return false;
}

RegistryResult readRegistryText(const std::string& /*_key*/, const std::string& /*_value*/, std::string& /*_text*/) {
  static_cast<void>(injectedFault(Call::registry));
  return RegistryResult::noKey;
}

}  // namespace platform
