// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// The name of the machine; empty if the system does not tell.
std::string hostName();

/// The system's text for an errno value.
std::string errorText(int _errno);

}  // namespace toolsystem
