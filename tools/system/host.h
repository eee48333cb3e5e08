// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// The name of the machine; empty when the system does not say.
std::string hostName();

/// The system's text for a number of errno.
std::string errorText(int _errno);

}  // namespace toolsystem
