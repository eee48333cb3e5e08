// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/logtest/setup_facts.h"

namespace logtest {

/// Why a set-up that met these facts failed: the first of them that makes one fail, in words, with the paths as the
/// system wants them.
std::string reasonOfFailure(const SetupFacts& _facts);

}  // namespace logtest
